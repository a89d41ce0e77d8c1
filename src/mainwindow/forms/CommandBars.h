// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QObject>

#include <functional>
#include <string_view>

class QAction;
class QMenu;
class QMenuBar;
class QToolBar;

namespace calyvox {

class MainWindow;
struct Command;

/// The menus and the toolbar of the main window, made from the table of commands. Every action runs its
/// command by name.
class CommandBars : public QObject {
    Q_OBJECT

public:
    CommandBars(MainWindow& window, QWidget& owner, QMenuBar& menuBar, QToolBar& toolbar);

    /// Brings check marks, what is offered and the view's caption in line with the window.
    void Update();
    QMenu& Menu(std::string_view name) const;
    QAction& Action(std::string_view name) const;

private:
    void MakeActions(QWidget& owner);
    void MakeMenus(QMenuBar& menuBar);
    void FillMenus();
    void FillToolbar(QToolBar& toolbar);
    void Run(const Command& command);

    MainWindow& window_;
    QHash<QString, QAction*> actions_;
    QHash<QString, QMenu*> menus_;
};

} // namespace calyvox
