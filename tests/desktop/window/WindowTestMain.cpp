// The tests of the window run on a screen that isn't there, and without settings of this user.
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <orvoshare/module/OrvoShareModule.h>
#include <orvoshare/resources/StringTable.h>
#include <platform/qt/QtWindowSystem.h>
#include <platform/window/base/CWnd.h>

int main(int argc, char** argv) {
    using namespace orvo;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // No settings of this user.
    const QTemporaryDir home;
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME"}) {
        qputenv(variable, home.path().toUtf8());
    }
    const QApplication application(argc, argv);
    OrvoShareMain(OwnModule(), DLL_PROCESS_ATTACH);
    QtWindowSystem system;
    WindowSystem::SetCurrent(&system);
    testing::InitGoogleTest(&argc, argv);
    const int result = RUN_ALL_TESTS();
    AfxSetMainWnd(nullptr);
    WindowSystem::SetCurrent(nullptr);
    return result;
}
