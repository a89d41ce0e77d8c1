// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/Services.h"
#include "app/SettingsCatalogue.h"
#include "app/forms/Forms.h"
#include "app/forms/WindowServices.h"
#include "automation/forms/frmOptions.h"
#include "support/TempFolder.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

using namespace calyvox;

namespace {

const QString kForm = QStringLiteral("frmOptions");
constexpr std::array kSettings = {"Parameter\\DefaultPlayer", "Parameter\\PlayerShell",
                                  "Parameter\\PlayerPath", "Parameter\\PlayerParameter"};

template <typename T>
T& Control(const char* name) {
    return *Forms::Instance().Touch(kForm)->findChild<T*>(name);
}

TEST(OptionsFormTest, OkStoresWhatIsThereAndCancelNothing) {
    const std::tuple<const char*, const char*, Qt::Key, std::string> kCases[] = {
        {"/opt/\xD0\x96 p", "-f %P", Qt::Key_Return,
         "0|Play|/opt/\x1A"
         "0001046 p|-f %P|"},
        {"", "", Qt::Key_Return, "0|Play|1|1|"},
        {"x", "y", Qt::Key_Escape, "1|1|1|1|"}};
    Forms::Instance().Register(kForm, [] { return new frmOptions; });
    for (const auto& [player, parameters, key, expected] : kCases) {
        for (const char* setting : kSettings)
            WriteSetting(setting, "1", RegistryStore::kText);
        Forms::Instance().ShowModal(kForm, "frmMain");
        auto& shell = Control<QComboBox>("Shell");
        EXPECT_EQ(shell.itemText(0) + shell.currentText(), "Open1");
        EXPECT_TRUE(shell.isEnabled() && !Control<QWidget>("btnPlayerPfad").isEnabled());
        Control<QCheckBox>("chkDefaultPlayer").click();
        EXPECT_TRUE(!shell.isEnabled() && Control<QWidget>("btnPlayerPfad").isEnabled());
        shell.setCurrentText(" Play ");
        Control<QLineEdit>("PlayerPfad").setText(QString::fromUtf8(player));
        Control<QLineEdit>("PlayerParameter").setText(QString::fromUtf8(parameters));
        QTest::keyClick(&Control<QLineEdit>("PlayerPfad"), key);
        std::string stored;
        for (const char* setting : kSettings)
            stored += ReadSetting(setting) + "|";
        EXPECT_EQ(stored, expected);
    }
}

TEST(WindowServicesTest, AskingGivesBytesAndCancelNothingAndWaitingTakesNoInput) {
    const TempFolder folder;
    InstallServices(true);
    const auto after = [](Qt::Key key, const auto& ask) {
        QTimer::singleShot(0, [=] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (auto* box = dialog->findChild<QLineEdit*>()) box->setText(QString::fromUtf8("/\xD0\x96"));
            QTest::keyClick(dialog->focusWidget() ? dialog->focusWidget() : dialog, key);
        });
        return ask();
    };
    const auto text = [] { return TheServices().InputBox("Prompt", "Title"); };
    EXPECT_EQ(after(Qt::Key_Return, text) + after(Qt::Key_Escape, text), "/\x1A"
                                                                         "0001046");
    for (const std::string& start : {folder.InsidePath(), std::string("\\")}) {
        const auto browse = [&] {
            return TheServices().BrowseForFolder({"Title", "Caption", "Status", start});
        };
        EXPECT_EQ(after(Qt::Key_Return, browse) + after(Qt::Key_Escape, browse), start);
    }
    QLineEdit box;
    for (const auto& [wait, typed] :
         {std::pair(TheServices().KeepPainting, ""), {TheServices().Yield, "x"}}) {
        QCoreApplication::postEvent(&box, new QKeyEvent(QEvent::KeyPress, Qt::Key_X, {}, "x"));
        EXPECT_EQ((wait(), box.text()), typed);
    }
    TheServices() = Services();
}

} // namespace
