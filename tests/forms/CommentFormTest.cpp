// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/Services.h"
#include "app/forms/Forms.h"
#include "editors/forms/CommentRequest.h"
#include "editors/forms/GenreBox.h"
#include "editors/forms/frmCOMMEdit.h"

#include <QTest>
#include <QtWidgets>

#include <gtest/gtest.h>

using namespace calyvox;

static constexpr auto kDown = QEvent::KeyPress, kUp = QEvent::KeyRelease;
static RowList comments;
static std::size_t language;
static QWidget* At(const char* name) { return QApplication::activeModalWidget()->findChild<QWidget*>(name); }
static void Open(const std::string& comment, bool focusComment) {
    Forms::Instance().Register("frmCOMMEdit", [] { return new frmCOMMEdit; });
    comments.Clear();
    CommentList::AddRow(comments, "d", "ger", comment);
    TheCommentRequest() = {&comments, *CommentList::btnEditCOMM_Click(comments), &language, focusComment};
    Forms::Instance().ShowModal("frmCOMMEdit", "frmID3V2");
    EXPECT_EQ(At("btnOK")->window()->focusWidget(), At(focusComment ? "Comment" : "Descriptor"));
}
static void Press(const char* name, Qt::Key key) { QTest::keyClick(At(name), key); }
static void Send(QWidget* to, QEvent::Type type, int key, const QString& text = {}, bool ctrl = false) {
    QKeyEvent event(type, key, ctrl ? Qt::ControlModifier : Qt::NoModifier, text, type == kUp && ctrl);
    QApplication::sendEvent(to, &event);
}
static auto Row(std::size_t at = 0) { return comments.At(at).SubItems[0] + comments.At(at).SubItems[1]; }

TEST(CommentFormTest, WhatWasNotEditedIsTakenOverByteForByteAndTypedCharactersOfThePageToo) {
    const std::string text = "a\xA0\x81\x85\nb";
    Open(text, false), Press("Language", Qt::Key_O), Press("btnOK", Qt::Key_Return);
    EXPECT_EQ(Row() + Row(1), "ger" + text + "oci" + text);
    Open(text, true);
    for (const char16_t typed : {u'\u0416', u'\u20AC', u'\r'})
        Send(At("Comment"), kDown, typed == '\r' ? Qt::Key_Return : 0, QChar(typed));
    QTest::keyClick(At("Comment"), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(Row(), "ger?\x80\n" + text);
}

TEST(CommentFormTest, CtrlOCountsOnceWhenOIsLetGoAndABlankCommentIsRefused) {
    std::string told;
    TheServices().MessageBox = [&](const auto& box, auto...) { return told += box, MsgBox::kOk; };
    Open("c", true), Press("Comment", Qt::Key_Delete);
    for (const auto type : {kDown, kUp, kDown}) // held down
        Send(At("Comment"), type, Qt::Key_O, {}, true);
    Send(At("Comment"), kUp, Qt::Key_O); // Ctrl was let go first
    Press("Comment", Qt::Key_X), Press("Comment", Qt::Key_Escape);
    EXPECT_EQ(told + Row() + (QApplication::activeModalWidget() ? "..." : ""), "Please enter a commentgerc");
    TheServices() = Services();
}

TEST(CommentFormTest, ATypedGenreIsCompletedAndAnyOtherTextStays) {
    GenreBox box;
    const auto type = [&](const QString& text) {
        for (const QChar c : text)
            Send(&box, kDown, c == '\b' ? Qt::Key_Backspace : 0, c);
        return box.currentText() + '|' + box.lineEdit()->selectedText();
    };
    box.SetRows({"", "Rock", "Rock & Roll", "\xC4rger"});
    EXPECT_EQ(type(u"rOCK \u0416"_qs), "Rock & Roll|& Roll");
    EXPECT_EQ(type("\bx"), "Rock x|");
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(type(u"\u00E4"_qs), u"\u00C4rger|rger"_qs);
}
