// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "engine/Tables.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>

#ifdef CALYVOX_UI
#include <QApplication>

namespace {

void FailOnWarning(QtMsgType type, const QMessageLogContext&, const QString& text) {
    // What the offscreen platform itself says is no fault of ours.
    if (type == QtDebugMsg || type == QtInfoMsg || text.contains("This plugin does not support")) return;
    ADD_FAILURE() << "Qt: " << text.toStdString();
}

} // namespace
#endif

#ifdef __SANITIZE_ADDRESS__
// The font library keeps what it has loaded. NOLINTNEXTLINE: the sanitizer's own name
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }
#endif

int main(int argc, char** argv) {
    const calyvox::TempFolder home;
    ::setenv("XDG_CONFIG_HOME", home.Host("config").c_str(), 1);
    ::setenv("XDG_DATA_HOME", home.Host("data").c_str(), 1);
    ::setenv("LC_ALL", "C.UTF-8", 1);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    calyvox::BuildTables();
    testing::InitGoogleTest(&argc, argv);
#ifdef CALYVOX_UI
    const QApplication application(argc, argv);
    qInstallMessageHandler(FailOnWarning);
#endif
    return RUN_ALL_TESTS();
}
