#include "ui/dialog/qt/ansi_text.h"

#include <QList>

#include "ui/dialog/code_page.h"

namespace lumacfg::ui {

QString FromAnsi(std::string_view bytes) {
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (char byte : bytes) text.append(QChar(static_cast<char16_t>(CharacterOfWindows1252(byte))));
    return text;
}

std::string ToAnsi(QStringView text) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(text.size()));
    for (char32_t character : text.toUcs4()) {
        bytes.push_back(Windows1252ByteOf(character).value_or('?'));
    }
    return bytes;
}

}  // namespace lumacfg::ui
