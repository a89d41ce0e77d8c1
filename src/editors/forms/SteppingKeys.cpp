// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "editors/forms/SteppingKeys.h"

#include "mainwindow/MainWindow.h"

#include <QKeyEvent>

namespace calyvox {

namespace {

bool WithCtrl(const QKeyEvent& key) { return key.modifiers() == Qt::ControlModifier; }

} // namespace

void SteppingKeys::KeyDown(const QKeyEvent& key) {
    if (!key.isAutoRepeat()) keyWithCtrl_ = WithCtrl(key) ? key.key() : 0;
}

SteppingKeys::Step SteppingKeys::KeyUp(const QKeyEvent& key) const {
    if (key.isAutoRepeat() || (!WithCtrl(key) && key.key() != keyWithCtrl_)) return Step::None;
    if (key.key() == Qt::Key_B) return Step::Back;
    return key.key() == Qt::Key_N ? Step::Next : Step::None;
}

std::size_t SteppingKeys::Target(const MainWindow& window, Step step) {
    const std::size_t row = window.FileList.Current();
    if (row == RowList::kNone) return row;
    if (step == Step::Back && row > 0) return row - 1;
    return step == Step::Next && row + 1 < window.FileList.Count() ? row + 1 : RowList::kNone;
}

void SteppingKeys::GoTo(MainWindow& window, std::size_t row) {
    RowList& list = window.FileList;
    const std::size_t left = list.Current();
    list.Select(row, row, RowList::Flag::On);
    list.SetCurrent(row);
    list.Select(left, left, RowList::Flag::Off);
    window.View.EnsureVisible(row);
}

} // namespace calyvox
