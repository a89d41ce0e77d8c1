// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/Services.h"
#include "app/SettingsCatalogue.h"
#include "app/forms/Forms.h"
#include "app/forms/WindowServices.h"
#include "app/modBase.h"
#include "automation/forms/frmMassUpdate.h"
#include "support/HostScope.h"
#include "support/Mp3Builder.h"
#include "support/TempFolder.h"

#include <QAbstractItemModelTester>
#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

using namespace calyvox;

namespace {

const std::string kAudio = build::Audio();

class MassUpdateFormTest : public testing::Test {
protected:
    MassUpdateFormTest() {
        InstallServices(true);
        TheServices().MessageBox = Host().ShowMessage;
        Forms::Instance().Register("frmMassUpdate", [] { return new frmMassUpdate({}); });
        WriteSetting("Settings\\UnSync", "1", RegistryStore::kNumber);
    }
    ~MassUpdateFormTest() override {
        Forms::Instance().Unload("frmMassUpdate");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        TheServices() = Services();
    }

    // As the process with these switches, over files named a letter and their number. A ".txt" is an error.
    Form* Load(std::initializer_list<std::string> files, const std::string& switches = "") {
        std::string data = files.size() == 0 ? "" : "[Files]\nCount=7\n";
        for (const std::string& file : files)
            data += "[File" + file.substr(1, 1) + "]\nTIT2=x\nPath=" + folder_.Write(file, kAudio) + "\n";
        modBase::CommandLine = clsCommandLine();
        modBase::CommandLine.Resolve("/I=" + folder_.Write("data.ini", data) + switches);
        return form_ = Forms::Instance().Touch("frmMassUpdate");
    }
    QTreeView* View() { return form_->findChild<QTreeView*>(); }
    void Click(const char* button) { QTest::mouseClick(form_->findChild<QWidget*>(button), Qt::LeftButton); }
    void ClickTitle() { QTest::mouseClick(View()->header()->viewport(), Qt::LeftButton, {}, {20, 9}); }
    // First letters of the files, "*" behind a bold row.
    QString Rows() {
        QString rows;
        for (QModelIndex at = View()->model()->index(0, 0); at.isValid(); at = at.siblingAtRow(at.row() + 1))
            rows += at.data().toString().right(6).left(1) + (at.data(Qt::FontRole).isNull() ? "" : "*");
        return rows;
    }

    TempFolder folder_;
    HostScope host_;
    Form* form_ = nullptr;
};

TEST_F(MassUpdateFormTest, StartRunsToTheSummaryAndAColumnsTitleSorts) {
    ASSERT_TRUE(Load({"b1.mp3", "c2.txt", "a3.mp3"})->isVisible() && Host().WriteUnSync);
    new QAbstractItemModelTester(View()->model(), form_);
    QString captions = form_->windowTitle();
    for (const QWidget* control : form_->findChildren<QWidget*>())
        captions += control->property("text").isValid() ? '|' + control->property("text").toString() : "";
    EXPECT_EQ(captions,
              "Calyvox - TAG updating ...||Warning|In order to update the ID3-Tags, the MP3-Files must not "
              "be used by other applications. Otherwise the ID3-Tags can NOT be updated!|0%|Total number of "
              "files: |7|Number of files finished:|0|&Start|S&top|&Close");
    ClickTitle();
    Click("btnStart");
    EXPECT_EQ(host_.Boxes, "Summery|Summery of tag updating:\r\rUpdated files: 7\rNumber of errors: 1|0\n");
    EXPECT_EQ(form_->windowTitle(), "Calyvox - Finished updating");
    EXPECT_EQ(form_->findChild<QLabel*>("FNr")->text() + form_->findChild<QProgressBar*>()->text(), "3100%");
    EXPECT_EQ(Rows(), "abc*") << "sorted before the start, sorted while it runs";
    ClickTitle();
    EXPECT_EQ(Rows(), "c*ba");
    Click("btnStart");
    EXPECT_TRUE(host_.Boxes.ends_with("2|0\n")) << "errors add up";
    Click("btnClose");
    EXPECT_FALSE(Forms::Instance().IsLoaded("frmMassUpdate"));
}

TEST_F(MassUpdateFormTest, StopIsHeardWhileRunningAndCloseIsRefused) {
    Load({"a1.mp3", "b2.mp3"});
    QTimer::singleShot(0, [this] {
        EXPECT_FALSE(form_->findChild<QWidget*>("btnStart")->isEnabled());
        Click("btnClose");
        EXPECT_FALSE(form_->close());
        Click("btnStop");
    });
    Click("btnStart");
    EXPECT_TRUE(form_->isVisible() && Rows() == "a" && folder_.Read("b2.mp3") == kAudio);
    Click("btnStart");
    EXPECT_EQ(Rows(), "ab") << "begins anew";
    EXPECT_TRUE(Forms::Instance().Unload("frmMassUpdate")) << "after the run it closes";
}

TEST_F(MassUpdateFormTest, AutoModusGoesSilentlyAndStaysAfterErrors) {
    EXPECT_TRUE(!Load({}) && host_.Boxes.ends_with("finished!|48\n"));
    EXPECT_TRUE(!Load({"a1.mp3"}, " /A=TRUE") && host_.Boxes.ends_with("finished!|48\n"));
    EXPECT_TRUE(Load({"a1.mp3", "b2.txt"}, " /A=TRUE") && form_->isVisible() && Rows() == "ab*");
}

} // namespace
