#include "commands.h"

#include <QPushButton>
#include <map>
#include <string_view>

#include "actions.h"
#include "arguments.h"
#include "controls.h"
#include "json_values.h"
#include "questions.h"

namespace zerbal::drive {
namespace {

void SeedCommand(const Arguments& arguments, Context& context) {
  if (context.program.Running())
    throw Failure("the program has started already");
  context.program.Seed(static_cast<std::uint32_t>(arguments.Number(0)));
}

void RandomCommand(const Arguments& arguments, Context& context) {
  std::vector<float> values;
  for (std::size_t i = 0; i < arguments.Count(); ++i) {
    const double value = arguments.Number(i);
    if (value < 0 || value >= 1)
      throw SyntaxError(QString("%1 is not in [0, 1)").arg(value));
    values.push_back(static_cast<float>(value));
  }
  context.program.QueueRandom(values);
}

void StartCommand(const Arguments&, Context& context) {
  if (context.program.Running())
    throw Failure("the program has started already");
  const bool started = context.program.Start();
  context.answer({{"started", started}});
}

void QuitCommand(const Arguments&, Context& context) {
  RequireReachable(&context.program.MainWindow(), "frmMain");
  context.program.MainWindow().close();
  if (context.program.Running())
    throw Failure("the main window did not close");
  context.answer({{"ended", true}});
}

void BoxCommand(const Arguments&, Context& context) {
  context.answer({{"box", BoxValue(OpenBox())}});
}

void AnswerCommand(const Arguments& arguments, Context&) {
  QMessageBox* box = OpenBox();
  if (!box)
    throw Failure("no message box is open");
  for (QAbstractButton* button : box->buttons()) {
    if (button->text().remove('&').compare(arguments.Text(0), Qt::CaseInsensitive) == 0) {
      button->click();
      return;
    }
  }
  throw Failure(QString("the message box has no button '%1'").arg(arguments.Text(0)));
}

bool AnyOperationHolds(const QJsonObject& expected, Context& context) {
  for (const map::Operation& operation : context.program.Operations()) {
    if (Difference(expected, OperationValue(operation)).isEmpty())
      return true;
  }
  return false;
}

void ExpectCommand(const Arguments& arguments, Context& context) {
  const QJsonObject expected = arguments.Json();
  if (!context.lastAnswer)
    throw Failure("nothing has been printed yet");
  const QString difference = Difference(expected, *context.lastAnswer);
  if (!difference.isEmpty())
    throw Failure(QString("%1\n  expected %2\n  is       %3")
                      .arg(difference, QString::fromStdString(JsonLine(expected)),
                           QString::fromStdString(JsonLine(*context.lastAnswer))));
}

void ExpectOpCommand(const Arguments& arguments, Context& context) {
  const QJsonObject expected = arguments.Json();
  if (!AnyOperationHolds(expected, context))
    throw Failure("no operation holds " + QString::fromStdString(JsonLine(expected)));
}

void ExpectNoOpCommand(const Arguments& arguments, Context& context) {
  const QJsonObject expected = arguments.Json();
  if (AnyOperationHolds(expected, context))
    throw Failure("an operation holds " + QString::fromStdString(JsonLine(expected)));
}

void EchoCommand(const Arguments& arguments, Context& context) {
  QString text = QString::fromStdString(arguments.Rest());
  if (text.size() >= 2 && text.startsWith('"') && text.endsWith('"'))
    text = text.mid(1, text.size() - 2).replace("\\\"", "\"").replace("\\\\", "\\");
  context.answer({{"echo", text}});
}

struct Command {
  std::size_t fewest = 0;    ///< arguments
  std::size_t most = 0;      ///< arguments
  bool needsProgram = true;  ///< only while the program runs
  bool duringBox = false;    ///< also while a message box is open
  void (*run)(const Arguments&, Context&) = nullptr;
};

constexpr std::size_t kUnlimited = static_cast<std::size_t>(-1);

const std::map<std::string_view, Command>& Commands() {
  static const std::map<std::string_view, Command> commands = {
      {"seed", {1, 1, false, false, SeedCommand}},
      {"random", {1, kUnlimited, false, false, RandomCommand}},
      {"start", {0, 0, false, false, StartCommand}},
      {"quit", {0, 0, true, false, QuitCommand}},
      {"box", {0, 0, false, true, BoxCommand}},
      {"answer", {1, 1, false, true, AnswerCommand}},
      {"menu", {1, 1, true, false, MenuCommand}},
      {"click", {1, 1, true, false, ClickCommand}},
      {"rightclick", {1, 1, true, false, RightClickCommand}},
      {"text", {2, 2, true, false, TextCommand}},
      {"keys", {2, 2, true, false, KeysCommand}},
      {"paste", {2, 2, true, false, PasteCommand}},
      {"choose", {2, 2, true, false, ChooseCommand}},
      {"pick", {2, 2, true, false, PickCommand}},
      {"scroll", {2, 2, true, false, ScrollCommand}},
      {"mapsize", {2, 2, true, false, MapSizeCommand}},
      {"press", {3, 3, true, false, PressCommand}},
      {"move", {2, 2, true, false, MoveCommand}},
      {"release", {3, 3, true, false, ReleaseCommand}},
      {"hover", {1, 1, true, false, HoverCommand}},
      {"wheel", {3, 4, true, false, WheelCommand}},
      {"key", {1, 1, true, false, KeyCommand}},
      {"rest", {2, 2, true, false, RestCommand}},
      {"state", {1, 1, true, false, StateCommand}},
      {"place", {3, 5, true, false, PlaceCommand}},
      {"close", {1, 1, true, false, CloseCommand}},
      {"get", {1, 1, true, false, GetCommand}},
      {"windows", {0, 0, false, false, WindowsCommand}},
      {"view", {0, 0, true, false, ViewCommand}},
      {"project", {2, 2, true, false, ProjectCommand}},
      {"ops", {0, 0, true, false, OpsCommand}},
      {"draws", {0, 0, true, false, DrawsCommand}},
      {"colours", {0, 0, true, false, ColoursCommand}},
      {"fonts", {0, 0, true, false, FontsCommand}},
      {"regions", {0, 0, true, false, RegionsCommand}},
      {"services", {0, 0, true, false, ServicesCommand}},
      {"selection", {0, 0, true, false, SelectionCommand}},
      {"ini", {2, 2, false, false, IniCommand}},
      {"file", {1, 1, false, false, FileCommand}},
      {"shot", {1, 2, true, false, ShotCommand}},
      // These do not use the program, so they are allowed while a box is open.
      {"expect", {0, 0, false, true, ExpectCommand}},
      {"expect-op", {0, 0, true, false, ExpectOpCommand}},
      {"expect-no-op", {0, 0, true, false, ExpectNoOpCommand}},
      {"echo", {0, 0, false, true, EchoCommand}},
  };
  return commands;
}

}  // namespace

void Execute(const ScriptLine& line, Context& context) {
  const auto found = Commands().find(line.Command());
  if (found == Commands().end())
    throw SyntaxError(QString("'%1' is not a command").arg(QString::fromStdString(line.Command())));
  const Command& command = found->second;
  const Arguments arguments(line);
  if (arguments.Count() < command.fewest || arguments.Count() > command.most ||
      (line.Command() == "place" && arguments.Count() == 4))
    throw SyntaxError(QString("'%1' takes other arguments").arg(QString::fromStdString(line.Command())));
  if (!command.duringBox && OpenBox())
    throw Failure("a message box is open: \"" + OpenBox()->text() + "\"");
  if (command.needsProgram && !context.program.Running())
    throw Failure("the program is not running");
  command.run(arguments, context);
}

}  // namespace zerbal::drive
