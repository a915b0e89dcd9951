// The window tests' program: Qt's offscreen platform, chosen before the application starts,
// so the tests run alike with and without a display. The windows are in English, whatever the
// desktop's language, unless LUMACFG_TEST_LANGUAGE names another ("de", "ja"): the tests of a
// window's layout run so in each language.
#include <gmock/gmock.h>
#include <stdlib.h>

#include <QApplication>

#include "ui/dialog/qt/translation.h"

int main(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication application(argc, argv);
    const QString language = qEnvironmentVariable("LUMACFG_TEST_LANGUAGE", QStringLiteral("en"));
    QLocale::setDefault(QLocale(language));
    lumacfg::ui::UseLanguage(QLocale());
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
