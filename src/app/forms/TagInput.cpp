// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "app/forms/TagInput.h"

#include "app/forms/Dialogs.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QToolTip>

#include <algorithm>

namespace calyvox::TagInput {

namespace {

bool IsOnThePage(const QString& text) { return Dialogs::TagText(Dialogs::TagBytes(text)) == text; }

// Watches the keys of one box, which owns it.
class KeyFilter : public QObject {
public:
    KeyFilter(QLineEdit& box, bool digitsOnly) : QObject(&box), box_(box), digitsOnly_(digitsOnly) {
        box.installEventFilter(this);
        connect(&box, &QLineEdit::textChanged, this, &KeyFilter::Clean);
    }

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        const QString typed = static_cast<QKeyEvent*>(event)->text();
        if (typed.isEmpty() || typed.at(0).category() == QChar::Other_Control) return false;
        const auto isDigit = [](QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); };
        if (digitsOnly_) return !std::all_of(typed.begin(), typed.end(), isDigit);
        if (IsOnThePage(typed)) return false;
        QToolTip::showText(box_.mapToGlobal(QPoint(0, box_.height())),
                           tr("\"%1\" cannot be kept in a tag of this program").arg(typed), &box_);
        return true;
    }

private:
    void Clean(const QString& text) {
        if (IsOnThePage(text)) return;
        const int cursor = box_.cursorPosition();
        box_.setText(Dialogs::TagText(Dialogs::TagBytes(text)));
        box_.setModified(true);
        box_.setCursorPosition(cursor);
    }

    QLineEdit& box_;
    bool digitsOnly_;
};

} // namespace

void HoldToCodePage(QLineEdit& box) { new KeyFilter(box, false); }

void HoldToDigits(QLineEdit& box) { new KeyFilter(box, true); }

} // namespace calyvox::TagInput
