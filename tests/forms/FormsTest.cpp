// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/Forms.h"

#include "app/Services.h"
#include "app/forms/Form.h"
#include "app/forms/WindowServices.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

using namespace calyvox;
using namespace calyvox::MsgBox;

namespace {

struct Recorder : Form {
    ~Recorder() override { Log += "delete "; }
    void Load() override { Log += "load "; }
    bool QueryUnload(UnloadReason) override { return !Refuses; }
    bool Unload() override {
        Log += isVisible() ? "unload-seen " : "unload ";
        return true;
    }

    void Activated() override { Log += objectName().toStdString() + "-activated "; }

    inline static std::string Log;
    inline static bool Refuses = false;
};

TEST(FormsTest, ATouchMakesAFormOnceAndUnloadLetsTheNextMakeANewOne) {
    Forms& forms = Forms::Instance();
    for (const char* name : {"frmA", "frmB"})
        forms.Register(name, [] { return new Recorder; });
    forms.SetLastFormGone([] { Recorder::Log += "last "; });
    Form* form = forms.Touch("frmA");
    EXPECT_FALSE(form->isVisible());
    forms.Show("frmA");
    Recorder::Refuses = true;
    EXPECT_FALSE(forms.Unload("frmA") || form->close());
    EXPECT_TRUE(forms.Touch("frmA") == form && form->isVisible() && !forms.Touch("frmNone"));
    Recorder::Refuses = false;
    forms.Touch("frmB");
    form->close();
    EXPECT_FALSE(forms.IsLoaded("frmA") || form->isVisible()) << "hidden at once, deleted later";
    EXPECT_TRUE(forms.Touch("frmA") != form && forms.Unload("frmB"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(forms.Unload("frmA") && forms.Unload("frmA")) << "what is not loaded is gone already";
    EXPECT_EQ(Recorder::Log, "load load unload-seen load unload delete delete unload last ");
}

TEST(FormsTest, AModalFormKeepsTheInputUntilItIsUnloadedAndItsOwnerHearsOfThat) {
    Forms& forms = Forms::Instance();
    for (const char* name : {"frmA", "frmB", "frmPass"})
        forms.Register(name, [] { return new Recorder; });
    forms.SetLastFormGone([] {});
    forms.Show("frmA");
    forms.ShowModal("frmB", "frmA");
    forms.ShowBlocking("frmPass", "frmA");
    EXPECT_TRUE(forms.Touch("frmPass")->parentWidget() == forms.Touch("frmB") &&
                forms.Touch("frmB")->isModal());
    EXPECT_EQ(QApplication::activeModalWidget(), forms.Touch("frmPass"));
    Recorder::Refuses = true;
    EXPECT_FALSE(forms.UnloadModal());
    Recorder::Refuses = false;
    Recorder::Log.clear();
    EXPECT_TRUE(forms.UnloadModal() && !QApplication::activeModalWidget() && forms.Unload("frmA"));
    EXPECT_EQ(Recorder::Log, "unload-seen unload-seen frmA-activated unload-seen ") << "a pass tells nobody";
}

TEST(MessageBoxTest, KeysAndButtonsGiveTheirCodes) {
    InstallServices(true);
    // Buttons, answer, code, icon.
    const int kCases[][4] = {
        {kOkOnly | kExclamation, Qt::Key_Escape, kOk, QMessageBox::Warning},
        {kOkCancel, Qt::Key_Return, kOk, QMessageBox::NoIcon},
        {kOkCancel | kCritical, Qt::Key_Escape, kCancel, QMessageBox::Critical},
        {kYesNo | kQuestion, Qt::Key_Return, kYes, QMessageBox::Question},
        {kYesNo, QMessageBox::No, kNo, QMessageBox::NoIcon},
        {kYesNoCancel | kInformation, Qt::Key_Escape, kCancel, QMessageBox::Information}};
    for (const auto& row : kCases) {
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            EXPECT_EQ(box->windowTitle() + box->text(), QString::fromUtf8("Tïtle €<b>é\nЖ\\\n&x"));
            EXPECT_TRUE(box->icon() == row[3] && box->textFormat() == Qt::PlainText) << row[0];
            QWidget* button = box->button(static_cast<QMessageBox::StandardButton>(row[1]));
            button ? QTest::mouseClick(button, Qt::LeftButton) : QTest::keyClick(box, Qt::Key(row[1]));
        });
        const std::string text = "<b>\xE9\r\x1A" + std::string("0001046\\\r\n&x");
        EXPECT_EQ(TheServices().MessageBox(text, row[0], "T\xEFtle \x80"), row[2]) << row[0];
    }
    TheServices() = Services();
}

} // namespace
