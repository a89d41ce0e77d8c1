// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/forms/frmCOMMEdit.h"

#include "app/forms/Dialogs.h"
#include "app/forms/Forms.h"
#include "app/forms/TagInput.h"
#include "editors/LanguageList.h"
#include "editors/forms/CommentRequest.h"
#include "ui_frmCOMMEdit.h"

#include <QKeyEvent>

namespace calyvox {

CommentRequest& TheCommentRequest() {
    static CommentRequest request;
    return request;
}

frmCOMMEdit::frmCOMMEdit() : ui_(std::make_unique<Ui::frmCOMMEdit>()) {
    ui_->setupUi(this);
    for (const std::string_view row : LanguageRows())
        ui_->Language->addItem(Dialogs::TagText(std::string(row)));
    TagInput::HoldToCodePage(*ui_->Descriptor);
    connect(ui_->btnOK, &QPushButton::clicked, this, &frmCOMMEdit::btnOK_Click);
    connect(ui_->btnCancel, &QPushButton::clicked, this, &frmCOMMEdit::btnCancel_Click);
    for (QWidget* control : findChildren<QWidget*>())
        control->installEventFilter(this);
    installEventFilter(this);
}

frmCOMMEdit::~frmCOMMEdit() = default;

void frmCOMMEdit::Load() {
    Dialogs::LoadDialogPosition(*this);
    const CommentRequest& request = TheCommentRequest();
    std::string comment = request.Entry.Comment;
    std::erase(comment, '\r'); // a lone one is no line end here
    ui_->Descriptor->setText(Dialogs::TagText(request.Entry.Descriptor));
    ui_->Language->setCurrentIndex(static_cast<int>(request.Entry.Language));
    ui_->Comment->setPlainText(Dialogs::TagText(comment));
    (request.FocusComment ? static_cast<QWidget*>(ui_->Comment) : ui_->Descriptor)->setFocus();
}

bool frmCOMMEdit::Unload() {
    Dialogs::SaveDialogPosition(*this);
    return true;
}

// The document's own characters: as plain text a hard blank would come back as a blank.
std::string frmCOMMEdit::CommentText() const {
    QString text = ui_->Comment->document()->toRawText();
    text.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    text.replace(QChar::LineSeparator, QLatin1Char('\n'));
    return Dialogs::TagBytes(text);
}

void frmCOMMEdit::btnOK_Click() {
    const CommentRequest& request = TheCommentRequest();
    if (!request.Comments || !request.EditorLanguage) return;
    CommentList::Entry entry = request.Entry;
    if (ui_->Descriptor->isModified()) entry.Descriptor = Dialogs::TagBytes(ui_->Descriptor->text());
    if (ui_->Comment->document()->isModified()) entry.Comment = CommentText();
    entry.Language = static_cast<std::size_t>(ui_->Language->currentIndex());
    if (CommentList::btnOK_Click(*request.Comments, entry, *request.EditorLanguage))
        Forms::Instance().Unload(objectName());
}

void frmCOMMEdit::btnCancel_Click() { Forms::Instance().Unload(objectName()); }

// Keys reach the form before its controls. Ctrl+O counts once, when O is let go; Ctrl may have been let go
// before it.
bool frmCOMMEdit::eventFilter(QObject* watched, QEvent* event) {
    const bool down = event->type() == QEvent::KeyPress;
    if (!down && event->type() != QEvent::KeyRelease) return Form::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool isO = key->key() == Qt::Key_O;
    const bool withCtrl = key->modifiers() == Qt::ControlModifier;
    if (key->isAutoRepeat()) return isO && withCtrl;
    if (down) {
        oWentDownWithCtrl_ = isO && withCtrl;
        if (key->key() == Qt::Key_Escape) btnCancel_Click();
        return oWentDownWithCtrl_ || key->key() == Qt::Key_Escape;
    }
    const bool takesOver = isO && (withCtrl || oWentDownWithCtrl_);
    if (takesOver) btnOK_Click();
    return takesOver;
}

} // namespace calyvox
