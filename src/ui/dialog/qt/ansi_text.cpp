#include "ui/dialog/qt/ansi_text.h"

#include <QList>
#include <array>

namespace lumacfg::ui {
namespace {

// The characters of bytes 0x80 to 0x9F; the undefined bytes keep their own number.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 0x80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 0x88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 0x90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 0x98
};

char ByteOf(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<char>(character);
    for (std::size_t i = 0; i < kHighControls.size(); ++i) {
        if (kHighControls[i] == character) return static_cast<char>(0x80 + i);
    }
    return '?';
}

}  // namespace

QString FromAnsi(std::string_view bytes) {
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        text.append(value >= 0x80 && value < 0xA0 ? QChar(kHighControls[value - 0x80])
                                                  : QChar(static_cast<char16_t>(value)));
    }
    return text;
}

std::string ToAnsi(QStringView text) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(text.size()));
    for (char32_t character : text.toUcs4()) bytes.push_back(ByteOf(character));
    return bytes;
}

}  // namespace lumacfg::ui
