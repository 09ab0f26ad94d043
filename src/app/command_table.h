// All commands of the program. To add one, add an operation to Commands and an entry to a table in
// command_table.cpp: menu bar, pop-up menu, tool bar, shortcuts and the saved check marks are made from them.
#pragma once

#include <functional>
#include <span>
#include <variant>

#include "app/dialogs.h"
#include "data/display_options.h"
#include "settings/catalogue.h"

namespace zerbal::app {

class Commands;

/// What a command does: an operation, an operation on the entry with the given index, switching an option, or
/// showing a dialog.
using Action = std::variant<void (Commands::*)(), void (Commands::*)(int index), bool data::DisplayOptions::*,
                            DialogKind>;

/// One command of the menu bar, or of the window alone.
struct Command {
  const char* name = nullptr;  ///< object name of the menu entry; nullptr: a separator, or no entry
  const char* caption = "";
  Action action;
  const char* button = nullptr;   ///< object name of its control on the tool bar: a check box for an option
  const char* picture = nullptr;  ///< the button's picture, a resource
  const char* rightClick = nullptr;  ///< the check box of the tool bar whose right button or Menu key runs it
  const settings::SwitchSetting* setting = nullptr;  ///< the option's
  /// Shortcuts, separated by "; ". The menu shows the first. That of an indexed entry ends in "%1": the
  /// index, up to 9.
  const char* keys = "";

  /// The option that the command switches and its check mark shows; nullptr for other commands.
  bool data::DisplayOptions::*Option() const {
    const auto* option = std::get_if<bool data::DisplayOptions::*>(&action);
    return option != nullptr ? *option : nullptr;
  }
};

struct MenuDescription {
  const char* name;
  const char* title;
  std::span<const Command> commands;
  Command indexed{};           ///< the array of entries, from 1, that start-up adds at the end
  const char* twin = nullptr;  ///< a pop-up menu with a twin of every entry
};

/// Runs a command; `index` says which entry of an array was chosen.
using RunCommand = std::function<void(const Command& command, int index)>;

/// The menu bar from left to right.
std::span<const MenuDescription> MenuTable();

/// The commands without a menu entry: buttons at the end of the tool bar, and shortcuts.
std::span<const Command> WindowCommands();

/// Calls `visit` for each command that switches an option, in the order of the settings file.
void ForEachOption(const std::function<void(const Command&)>& visit);

}  // namespace zerbal::app
