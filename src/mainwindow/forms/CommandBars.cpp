// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#include "mainwindow/forms/CommandBars.h"

#include "app/forms/Dialogs.h"
#include "app/forms/SvgIcon.h"
#include "mainwindow/MainWindow.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

namespace calyvox {

namespace {

QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QIcon IconOf(const Command& command) {
    return command.Icon.empty() ? QIcon() : SvgIcon(QStringLiteral(":/icons/%1.svg").arg(Text(command.Icon)));
}

QString MenuTitle(const CommandMenu& menu) {
    QString title = Text(menu.Caption);
    if (menu.Mnemonic < menu.Caption.size())
        title.insert(static_cast<qsizetype>(menu.Mnemonic), QLatin1Char('&'));
    return title;
}

} // namespace

CommandBars::CommandBars(MainWindow& window, QWidget& owner, QMenuBar& menuBar, QToolBar& toolbar)
    : QObject(&owner), window_(window) {
    MakeActions(owner);
    MakeMenus(menuBar);
    FillMenus();
    FillToolbar(toolbar);
}

void CommandBars::MakeActions(QWidget& owner) {
    for (const Command& command : AllCommands()) {
        auto* action = new QAction(IconOf(command), Text(command.Caption), this);
        action->setObjectName(Text(command.Name));
        action->setShortcut(QKeySequence(Text(command.Shortcut)));
        action->setCheckable(command.Kind != CommandKind::Plain);
        action->setVisible(command.Visible);
        connect(action, &QAction::triggered, this, [this, &command] { Run(command); });
        owner.addAction(action);
        actions_.insert(Text(command.Name), action);
    }
}

// What a command changes in the window may change what is checked and offered.
void CommandBars::Run(const Command& command) {
    Dialogs::Guarded([&] { window_.Commands.Run(command.Name); });
    Update();
}

void CommandBars::MakeMenus(QMenuBar& menuBar) {
    for (const CommandMenu& menu : AllMenus()) {
        auto* made = new QMenu(MenuTitle(menu), &menuBar);
        made->setObjectName(Text(menu.Name));
        menus_.insert(Text(menu.Name), made);
        if (menu.Parent.empty()) menuBar.addMenu(made);
    }
}

void CommandBars::FillMenus() {
    for (const Command& command : AllCommands()) {
        if (command.Menu.empty()) continue;
        QMenu& menu = Menu(command.Menu);
        if (menu.isEmpty())
            for (const CommandMenu& one : AllMenus())
                if (one.Name == command.Menu && !one.Parent.empty()) Menu(one.Parent).addMenu(&menu);
        if (command.BeginsGroup) menu.addSeparator();
        menu.addAction(&Action(command.Name));
    }
}

void CommandBars::FillToolbar(QToolBar& toolbar) {
    for (const ToolButton& button : AllToolButtons()) {
        if (button.Command.empty()) {
            toolbar.addSeparator();
            continue;
        }
        QAction& action = Action(button.Command);
        toolbar.addAction(&action);
        auto* made = qobject_cast<QToolButton*>(toolbar.widgetForAction(&action));
        action.setToolTip(Text(button.ToolTip));
        if (!button.Key.empty()) made->setObjectName(Text(button.Key));
        if (button.Caption.empty()) {
            made->setAccessibleName(Text(button.ToolTip));
            continue;
        }
        action.setIconText(Text(button.Caption));
        made->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    }
}

void CommandBars::Update() {
    for (const Command& command : AllCommands()) {
        QAction& action = Action(command.Name);
        action.setEnabled(window_.Commands.IsOffered(command));
        if (action.isCheckable()) action.setChecked(window_.Options.IsChecked(command.Name));
    }
    QAction& view = Action("View");
    view.setIconText(Text(MainWindow::ViewCaption()));
    view.setText(Text(MainWindow::ViewCaption()));
}

QMenu& CommandBars::Menu(std::string_view name) const { return *menus_.value(Text(name)); }

QAction& CommandBars::Action(std::string_view name) const { return *actions_.value(Text(name)); }

} // namespace calyvox
