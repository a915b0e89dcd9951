// The window tests' program: Qt's offscreen platform, chosen before the application starts,
// so the tests run alike with and without a display.
#include <gmock/gmock.h>
#include <stdlib.h>

#include <QApplication>

int main(int argc, char** argv) {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication application(argc, argv);
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
