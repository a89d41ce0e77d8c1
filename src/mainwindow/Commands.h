// SPDX-FileCopyrightText: The Calyvox developers
// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>

namespace calyvox {

enum class CommandKind { Plain, Toggle, Radio };

/// One command of the main window. Form is the dialog that it opens; every other command has a handler.
struct Command {
    std::string_view Name; // a radio item with its number: "submnudbl(0)"
    std::string_view Menu; // empty for one that only the toolbar has
    std::string_view Caption;
    std::string_view Shortcut;
    bool NeedsSelection = false;
    std::string_view Form = {};
    std::string_view Icon = {};
    CommandKind Kind = CommandKind::Plain;
    bool BeginsGroup = false; // a separator stands above it
    bool Visible = true;
};

/// A menu; the parent of a top-level one is empty. A menu stands in its parent where its first command
/// stands among all commands.
struct CommandMenu {
    std::string_view Name;
    std::string_view Parent;
    std::string_view Caption;
    std::size_t Mnemonic = std::string_view::npos; // place of the underlined letter
};

/// A button of the toolbar, by its index from 1. One without a command is a separator.
struct ToolButton {
    std::string_view Key;
    std::string_view Command;
    std::string_view Caption;
    std::string_view ToolTip;
};

/// All of them in menu order, and the toolbar's 24 buttons.
std::span<const Command> AllCommands();
std::span<const CommandMenu> AllMenus();
std::span<const ToolButton> AllToolButtons();
/// nullptr for a name that is none.
const Command* FindCommand(std::string_view name);

/// Runs commands by name. One without a handler, or whose form nobody knows, is not offered and does
/// nothing; while a pass runs none does anything.
class CommandRunner {
public:
    /// An empty handler takes the command from what is offered.
    void SetHandler(std::string_view name, std::function<void()> handler);
    bool IsOffered(const Command& command) const;
    void Run(std::string_view name) const;

    /// What running takes from the window. The first is called before every command.
    std::function<void()> Prepare = [] {};
    std::function<bool()> CheckSelection = [] { return true; };
    std::function<bool(std::string_view form)> IsFormKnown = [](std::string_view) { return false; };
    std::function<void(std::string_view form)> ShowForm = [](std::string_view) {};

private:
    std::map<std::string, std::function<void()>, std::less<>> handlers_;
};

} // namespace calyvox
