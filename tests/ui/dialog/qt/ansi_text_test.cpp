// Windows-1252 bytes into QString and back: the bytes that are not Latin-1, the bytes the code
// page leaves undefined, and characters the code page does not hold.
#include <gtest/gtest.h>

#include <string>

#include "ui/dialog/qt/ansi_text.h"

namespace lumacfg::ui {
namespace {

TEST(AnsiTextTest, BytesOfTheUpperControlRangeAreTheCodePagesCharacters) {
    const struct {
        unsigned char byte;
        char16_t character;
    } cases[] = {
        {0x80, u'€'},
        {0x82, u'‚'},
        {0x83, u'ƒ'},
        {0x84, u'„'},
        {0x85, u'…'},
        {0x86, u'†'},
        {0x87, u'‡'},
        {0x88, u'ˆ'},
        {0x89, u'‰'},
        {0x8A, u'Š'},
        {0x8B, u'‹'},
        {0x8C, u'Œ'},
        {0x8E, u'Ž'},
        {0x91, u'‘'},
        {0x92, u'’'},
        {0x93, u'“'},
        {0x94, u'”'},
        {0x95, u'•'},
        {0x96, u'–'},
        {0x97, u'—'},
        {0x98, u'˜'},
        {0x99, u'™'},
        {0x9A, u'š'},
        {0x9B, u'›'},
        {0x9C, u'œ'},
        {0x9E, u'ž'},
        {0x9F, u'Ÿ'},
        // Undefined in the code page: the control character of the same number.
        {0x81, u'\u0081'},
        {0x8D, u'\u008D'},
        {0x8F, u'\u008F'},
        {0x90, u'\u0090'},
        {0x9D, u'\u009D'},
        // Latin-1 around the range.
        {0x7F, u'\u007F'},
        {0xA0, u'\u00A0'},
        {0xE9, u'é'},
        {0xFF, u'ÿ'},
    };
    for (const auto& c : cases) {
        const std::string byte(1, static_cast<char>(c.byte));
        SCOPED_TRACE(testing::Message() << "byte 0x" << std::hex << int{c.byte});
        EXPECT_EQ(FromAnsi(byte), QString(QChar(c.character)));
        EXPECT_EQ(ToAnsi(QString(QChar(c.character))), byte);
    }
}

TEST(AnsiTextTest, EveryByteComesBackUnchanged) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all.push_back(static_cast<char>(byte));
    EXPECT_EQ(ToAnsi(FromAnsi(all)), all);
}

TEST(AnsiTextTest, CharactersOutsideTheCodePageBecomeQuestionMarks) {
    const struct {
        QString text;
        std::string bytes;
    } cases[] = {
        {QStringLiteral("Ω"), "?"},
        {QString(QChar(0x80)), "?"},  // a C1 control the code page puts elsewhere
        {QString(QChar(0x9F)), "?"},
        {QStringLiteral("a\U0001F600b"), "a?b"},  // one character in two UTF-16 units
        {QStringLiteral("C:\\Daten\\Jürgen €"), "C:\\Daten\\J\xFCrgen \x80"},
    };
    for (const auto& c : cases) EXPECT_EQ(ToAnsi(c.text), c.bytes) << c.text.toStdString();
}

}  // namespace
}  // namespace lumacfg::ui
