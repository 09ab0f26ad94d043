// The commands of a script: actions and questions by name.
#pragma once

#include <QJsonObject>
#include <Qt>
#include <functional>
#include <optional>

#include "driven_program.h"
#include "script_line.h"

namespace zerbal::drive {

/// What a command may use and leave behind.
struct Stage {
  DrivenProgram program;
  /// The object that was printed last.
  std::optional<QJsonObject> lastAnswer;
  /// Prints one answer and keeps it for `expect`.
  std::function<void(const QJsonObject&)> answer;
  /// The mouse buttons that the script holds down on the map.
  Qt::MouseButtons heldButtons;
};

/// Carries out one line. Throws NotACommand for a line that is none, Failure when it cannot be carried out.
void CarryOut(const ScriptLine& line, Stage& stage);

}  // namespace zerbal::drive
