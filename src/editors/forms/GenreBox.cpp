// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/forms/GenreBox.h"

#include "app/forms/Dialogs.h"
#include "app/forms/TagInput.h"
#include "editors/ListRows.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>

namespace calyvox {

namespace {

// What the key adds to the text; empty for a key that does something else.
QString TypedText(const QKeyEvent& key) {
    const bool command = (key.modifiers() & ~Qt::ShiftModifier) == Qt::ControlModifier;
    return command || key.text().isEmpty() || !key.text().at(0).isPrint() ? QString() : key.text();
}

} // namespace

GenreBox::GenreBox(QWidget* parent) : QComboBox(parent) {
    setEditable(true);
    setCompleter(nullptr);
    setInsertPolicy(NoInsert);
    TagInput::HoldToCodePage(*lineEdit());
    lineEdit()->installEventFilter(this);
}

void GenreBox::SetRows(const std::vector<std::string>& rows) {
    rows_ = rows;
    const QString text = lineEdit()->text();
    const bool modified = lineEdit()->isModified();
    clear();
    for (const std::string& row : rows_)
        addItem(Dialogs::TagText(row));
    setCurrentIndex(-1);
    lineEdit()->setText(text);
    lineEdit()->setModified(modified);
}

// The box itself would hand the key on past whoever watches its line. What the line refuses comes back.
void GenreBox::keyPressEvent(QKeyEvent* event) {
    if (handsOn_ || TypedText(*event).isEmpty()) return QComboBox::keyPressEvent(event);
    const QScopedValueRollback<bool> handsOn(handsOn_, true);
    QCoreApplication::sendEvent(lineEdit(), event);
}

bool GenreBox::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lineEdit() && event->type() == QEvent::KeyPress)
        return Complete(TypedText(*static_cast<QKeyEvent*>(event)));
    return QComboBox::eventFilter(watched, event);
}

bool GenreBox::Complete(const QString& typed) {
    const std::string key = Dialogs::TagBytes(typed);
    if (key.size() != 1 || Dialogs::TagText(key) != typed) return false;
    QLineEdit& line = *lineEdit();
    std::optional<std::size_t> selected;
    if (line.hasSelectedText()) selected = static_cast<std::size_t>(line.selectionStart());
    const auto found = ListRows::Complete(rows_, Dialogs::TagBytes(line.text()), selected, key.front());
    if (!found) return false;
    setCurrentIndex(static_cast<int>(found->Row));
    const int begin = static_cast<int>(found->Typed);
    line.setSelection(begin, static_cast<int>(line.text().size()) - begin);
    line.setModified(true);
    return true;
}

} // namespace calyvox
