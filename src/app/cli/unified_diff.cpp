#include "app/cli/unified_diff.h"

#include <algorithm>
#include <vector>

#include "base/numbers.h"

namespace lumacfg::cli {
namespace {

// The lines of a text, each with its ending ("\n", or none for a last line without one).
std::vector<std::string_view> Lines(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        end = end == std::string_view::npos ? text.size() : end + 1;
        lines.push_back(text.substr(start, end - start));
        start = end;
    }
    return lines;
}

enum class Op { Same, Removed, Added };

// The shortest edit script from a to b (Myers' algorithm), after the common head and tail are
// set aside, so a small change in a large file costs little.
std::vector<Op> EditScript(const std::vector<std::string_view>& a,
                           const std::vector<std::string_view>& b) {
    std::size_t head = 0;
    while (head < a.size() && head < b.size() && a[head] == b[head]) ++head;
    std::size_t tail = 0;
    while (tail < a.size() - head && tail < b.size() - head &&
           a[a.size() - 1 - tail] == b[b.size() - 1 - tail]) {
        ++tail;
    }
    const int n = static_cast<int>(a.size() - head - tail);
    const int m = static_cast<int>(b.size() - head - tail);
    auto A = [&](int i) { return a[head + static_cast<std::size_t>(i)]; };
    auto B = [&](int j) { return b[head + static_cast<std::size_t>(j)]; };

    std::vector<Op> middle;
    if (n == 0 || m == 0) {
        middle.assign(static_cast<std::size_t>(n), Op::Removed);
        middle.insert(middle.end(), static_cast<std::size_t>(m), Op::Added);
    } else {
        const int max = n + m;
        const int offset = max + 1;
        std::vector<int> v(static_cast<std::size_t>(2 * max + 3), 0);
        // trace[d]: the furthest x of diagonals -d-1..d+1 before round d.
        std::vector<std::vector<int>> trace;
        int found = -1;
        for (int d = 0; d <= max && found < 0; ++d) {
            trace.emplace_back(v.begin() + (offset - d - 1), v.begin() + (offset + d + 2));
            for (int k = -d; k <= d; k += 2) {
                auto at = [&](int kk) -> int& { return v[static_cast<std::size_t>(kk + offset)]; };
                int x = (k == -d || (k != d && at(k - 1) < at(k + 1))) ? at(k + 1) : at(k - 1) + 1;
                int y = x - k;
                while (x < n && y < m && A(x) == B(y)) ++x, ++y;
                at(k) = x;
                if (x >= n && y >= m) {
                    found = d;
                    break;
                }
            }
        }
        // Walk the trace back from the end.
        int x = n, y = m;
        for (int d = found; d > 0; --d) {
            const std::vector<int>& prev = trace[static_cast<std::size_t>(d)];
            auto at = [&](int kk) { return prev[static_cast<std::size_t>(kk + d + 1)]; };
            const int k = x - y;
            const bool down = k == -d || (k != d && at(k - 1) < at(k + 1));
            const int prevK = down ? k + 1 : k - 1;
            const int prevX = at(prevK);
            const int prevY = prevX - prevK;
            while (x > prevX && y > prevY) {
                middle.push_back(Op::Same);
                --x, --y;
            }
            middle.push_back(down ? Op::Added : Op::Removed);
            x = prevX, y = prevY;
        }
        while (x > 0 && y > 0) {
            middle.push_back(Op::Same);
            --x, --y;
        }
        std::reverse(middle.begin(), middle.end());
    }
    std::vector<Op> script(head, Op::Same);
    script.insert(script.end(), middle.begin(), middle.end());
    script.insert(script.end(), tail, Op::Same);
    return script;
}

// "l,s" of a hunk side; "l" alone for one line; an empty side names the line before it.
std::string Range(int first, int count) {
    if (count == 1) return IntText(first + 1);
    return IntText(count == 0 ? first : first + 1) + "," + IntText(count);
}

void AppendLine(std::string& out, char mark, std::string_view line) {
    out += mark;
    out += line;
    if (line.empty() || line.back() != '\n') out += "\n\\ No newline at end of file\n";
}

}  // namespace

std::string UnifiedDiff(std::string_view path, const std::optional<std::string>& before,
                        const std::optional<std::string>& after, int context) {
    if (before == after) return {};
    const std::string_view old = before ? std::string_view(*before) : std::string_view{};
    const std::string_view now = after ? std::string_view(*after) : std::string_view{};
    const std::vector<std::string_view> a = Lines(old);
    const std::vector<std::string_view> b = Lines(now);
    const std::vector<Op> script = EditScript(a, b);

    std::string out;
    out += "--- " + (before ? std::string(path) : std::string("/dev/null")) + "\n";
    out += "+++ " + (after ? std::string(path) : std::string("/dev/null")) + "\n";
    const int total = static_cast<int>(script.size());
    int i = 0;
    while (i < total) {
        // The next change, and the hunk around it: changes closer than twice the context join.
        while (i < total && script[static_cast<std::size_t>(i)] == Op::Same) ++i;
        if (i == total) break;
        const int start = std::max(0, i - context);
        int lastChange = i;
        for (int s = i; s < total; ++s) {
            if (script[static_cast<std::size_t>(s)] != Op::Same) {
                lastChange = s;
            } else if (s - lastChange > 2 * context) {
                break;
            }
        }
        const int end = std::min(total, lastChange + 1 + context);
        // Line numbers of the hunk's first line on each side.
        int ai = 0, bi = 0;
        for (int s = 0; s < start; ++s) {
            const Op op = script[static_cast<std::size_t>(s)];
            if (op != Op::Added) ++ai;
            if (op != Op::Removed) ++bi;
        }
        int aCount = 0, bCount = 0;
        std::string body;
        int aLine = ai, bLine = bi;
        for (int s = start; s < end; ++s) {
            switch (script[static_cast<std::size_t>(s)]) {
                case Op::Same:
                    AppendLine(body, ' ', a[static_cast<std::size_t>(aLine++)]);
                    ++bLine, ++aCount, ++bCount;
                    break;
                case Op::Removed:
                    AppendLine(body, '-', a[static_cast<std::size_t>(aLine++)]);
                    ++aCount;
                    break;
                case Op::Added:
                    AppendLine(body, '+', b[static_cast<std::size_t>(bLine++)]);
                    ++bCount;
                    break;
            }
        }
        out += "@@ -" + Range(ai, aCount) + " +" + Range(bi, bCount) + " @@\n";
        out += body;
        i = end;
    }
    return out;
}

}  // namespace lumacfg::cli
