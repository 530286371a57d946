// SPDX-License-Identifier: MIT
// Tests of the window's parts, on a screen that nobody sees.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLocale>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    // As the program does at its start.
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Brazil));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
