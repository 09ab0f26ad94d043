// The commands of a script by name.
#pragma once

#include <QJsonObject>
#include <Qt>
#include <functional>
#include <optional>

#include "driven_program.h"
#include "script_line.h"

namespace zerbal::drive {

/// What commands share.
struct Context {
  DrivenProgram program;
  /// The object that was printed last; nullopt before the first one.
  std::optional<QJsonObject> lastAnswer;
  /// Prints one answer and keeps it for `expect`.
  std::function<void(const QJsonObject&)> answer;
  /// The mouse buttons that the script holds down on the map.
  Qt::MouseButtons heldButtons;
};

/// Executes one line. Throws SyntaxError when it is not a command, Failure when the command fails.
void Execute(const ScriptLine& line, Context& context);

}  // namespace zerbal::drive
