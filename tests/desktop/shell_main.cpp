// SPDX-License-Identifier: MIT
// Stories of the window, on a screen that nobody sees, in a home that is nobody's.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

int main(int argc, char** argv) {
    const QTemporaryDir home;
    for (const char* name : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        qputenv(name, home.path().toLocal8Bit());
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qunsetenv("ZPFORJA2010");
    QApplication application(argc, argv);
    QApplication::setOrganizationName("prancheta");
    QApplication::setApplicationName("prancheta");
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
