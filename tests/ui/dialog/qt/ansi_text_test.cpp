// Windows-1252 bytes into QString and back.
#include <gtest/gtest.h>

#include <string>

#include "ui/dialog/qt/ansi_text.h"

namespace lumacfg::ui {
namespace {

TEST(AnsiTextTest, BytesBecomeTheCodePagesCharactersAndComeBackUnchanged) {
    // 0x80-0x9F are not Latin-1; the five undefined bytes keep their own number.
    EXPECT_EQ(FromAnsi("\x80\x81\x8A\x8D\x8F\x90\x93\x94\x9D\x9F\xE9"),
              QString::fromUtf8("€\u0081Š\u008D\u008F\u0090“”\u009DŸé"));
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
        {QString(QChar(0x80)), "?"},              // a C1 control whose byte means "€"
        {QStringLiteral("a\U0001F600b"), "a?b"},  // one character in two UTF-16 units
        {QStringLiteral("J\u00FCrgen \u20AC"), "J\xFCrgen \x80"},
    };
    for (const auto& c : cases) EXPECT_EQ(ToAnsi(c.text), c.bytes) << c.text.toStdString();
}

}  // namespace
}  // namespace lumacfg::ui
