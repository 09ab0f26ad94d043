#include "actions.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QHelpEvent>
#include <QKeySequence>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <numeric>

#include "controls.h"
#include "simulated_input.h"

namespace zerbal::drive {
namespace {

Qt::MouseButtons ButtonsOf(const QString& word) {
  if (word == "left")
    return Qt::LeftButton;
  if (word == "right")
    return Qt::RightButton;
  if (word == "both")
    return Qt::LeftButton | Qt::RightButton;
  throw SyntaxError(QString("'%1' is not a mouse button").arg(word));
}

app::frmMap& ReachableMap(Context& context) {
  app::frmMap& window = context.program.MapWindow();
  RequireReachable(&window, "frmMap");
  return window;
}

QPointF Pixels(double x, double y) {
  return {x / kTwipsPerPixel, y / kTwipsPerPixel};
}

void SendToMap(Context& context, QEvent::Type type, double x, double y, Qt::MouseButton button) {
  app::frmMap& window = ReachableMap(context);
  const QPointF at = Pixels(x, y);
  QMouseEvent event(type, at, window.mapToGlobal(at), button, context.heldButtons, Qt::NoModifier);
  QApplication::sendEvent(&window, &event);
}

}  // namespace

void MenuCommand(const Arguments& arguments, Context&) {
  const QString name = arguments.Text(0);
  QAction* action = Find(name).action;
  if (!action)
    throw Failure(QString("'%1' is not a menu entry").arg(name));
  RequireUsable(action, name);
  // Choosing an entry of an open pop-up menu closes it.
  if (QWidget* popup = QApplication::activePopupWidget())
    popup->close();
  action->trigger();
}

void ClickCommand(const Arguments& arguments, Context&) {
  auto* widget = FindWidget<QWidget>(arguments.Text(0));
  RequireReachable(widget, arguments.Text(0));
  ClickMiddle(widget, Qt::LeftButton);
}

void RightClickCommand(const Arguments& arguments, Context&) {
  auto* widget = FindWidget<QWidget>(arguments.Text(0));
  RequireReachable(widget, arguments.Text(0));
  ClickMiddle(widget, Qt::RightButton);
}

void TextCommand(const Arguments& arguments, Context&) {
  auto* widget = FindWidget<QWidget>(arguments.Text(0));
  RequireUsable(widget, arguments.Text(0));
  const QPointer<QWidget> alive = widget;
  FocusByTab(widget);
  TypeKeys(widget, arguments.Text(1), false);
  if (alive)
    LeaveByTab(widget);
}

void KeysCommand(const Arguments& arguments, Context&) {
  auto* widget = FindWidget<QWidget>(arguments.Text(0));
  RequireUsable(widget, arguments.Text(0));
  Activate(widget);
  // This focus reason leaves the selection unchanged.
  if (widget->window()->focusWidget() != widget && !widget->isWindow())
    widget->setFocus(Qt::OtherFocusReason);
  TypeKeys(widget, arguments.Text(1), true);
}

void PasteCommand(const Arguments& arguments, Context&) {
  auto* widget = FindWidget<QWidget>(arguments.Text(0));
  RequireUsable(widget, arguments.Text(0));
  Paste(widget, arguments.Text(1));
}

void ChooseCommand(const Arguments& arguments, Context&) {
  auto* combo = FindWidget<QComboBox>(arguments.Text(0));
  RequireUsable(combo, arguments.Text(0));
  bool isNumber = false;
  int index = arguments.Text(1).toInt(&isNumber);
  if (arguments.Quoted(1) || !isNumber)
    index = combo->findText(arguments.Text(1), Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (index < 0)
    throw Failure(QString("'%1' has no entry '%2'").arg(arguments.Text(0), arguments.Text(1)));
  Choose(combo, index);
}

void PickCommand(const Arguments& arguments, Context&) {
  auto* list = FindWidget<QAbstractItemView>(arguments.Text(0));
  RequireUsable(list, arguments.Text(0));
  const QString wanted = arguments.Text(1);
  std::vector<int> rows;
  if (wanted == "all") {
    rows.resize(static_cast<std::size_t>(list->model()->rowCount()));
    std::iota(rows.begin(), rows.end(), 0);
  } else if (wanted != "none") {
    for (const QString& part : wanted.split(',')) {
      bool ok = false;
      rows.push_back(part.toInt(&ok));
      if (!ok)
        throw SyntaxError(QString("'%1' is not a line number").arg(part));
    }
  }
  PickRows(list, rows);
}

void ScrollCommand(const Arguments& arguments, Context&) {
  auto* bar = FindWidget<QScrollBar>(arguments.Text(0));
  RequireUsable(bar, arguments.Text(0));
  bar->setValue(arguments.Whole(1));
}

void HoverCommand(const Arguments& arguments, Context&) {
  auto* widget = FindWidget<QWidget>(arguments.Text(0));
  RequireReachable(widget, arguments.Text(0));
  HoverMiddle(widget);
}

void MapSizeCommand(const Arguments& arguments, Context& context) {
  QWidget& main = context.program.MainWindow();
  app::frmMap& mapWindow = context.program.MapWindow();
  const QSize wanted(arguments.Whole(0), arguments.Whole(1));
  main.resize(main.size() + wanted - mapWindow.size());
  QApplication::sendPostedEvents();
  // The main window cannot be smaller than its tool bar; the map window can.
  if (mapWindow.size() != wanted)
    mapWindow.resize(wanted);
}

void PressCommand(const Arguments& arguments, Context& context) {
  const Qt::MouseButtons buttons = ButtonsOf(arguments.Text(0));
  context.heldButtons |= buttons;
  const auto button = buttons.testFlag(Qt::LeftButton) ? Qt::LeftButton : Qt::RightButton;
  if (app::frmMap& window = ReachableMap(context); window.focusPolicy() & Qt::ClickFocus) {
    Activate(&window);
    window.setFocus(Qt::MouseFocusReason);
  }
  SendToMap(context, QEvent::MouseButtonPress, arguments.Number(1), arguments.Number(2), button);
}

void MoveCommand(const Arguments& arguments, Context& context) {
  SendToMap(context, QEvent::MouseMove, arguments.Number(0), arguments.Number(1), Qt::NoButton);
}

void ReleaseCommand(const Arguments& arguments, Context& context) {
  const Qt::MouseButtons buttons = ButtonsOf(arguments.Text(0));
  context.heldButtons &= ~buttons;
  for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
    if (buttons.testFlag(button))
      SendToMap(context, QEvent::MouseButtonRelease, arguments.Number(1), arguments.Number(2), button);
  }
}

void WheelCommand(const Arguments& arguments, Context& context) {
  if (arguments.Count() == 4 && arguments.Text(3) != "Ctrl")
    throw SyntaxError(QString("'%1' is not a key that is held").arg(arguments.Text(3)));
  constexpr double kNotch = 120;  // eighths of a degree
  const QPoint turned(0, qRound(arguments.Number(2) * kNotch));
  app::frmMap& window = ReachableMap(context);
  const QPointF at = Pixels(arguments.Number(0), arguments.Number(1));
  QWheelEvent event(at, window.mapToGlobal(at), {}, turned, context.heldButtons,
                    arguments.Count() == 4 ? Qt::ControlModifier : Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&window, &event);
}

void KeyCommand(const Arguments& arguments, Context& context) {
  const auto sequence = QKeySequence::fromString(arguments.Text(0), QKeySequence::PortableText);
  if (sequence.count() != 1 || sequence[0].key() == Qt::Key_unknown)
    throw SyntaxError(QString("'%1' is not a key").arg(arguments.Text(0)));
  PressSequence(&context.program.MainWindow(), sequence[0]);
}

void RestCommand(const Arguments& arguments, Context& context) {
  SendToMap(context, QEvent::MouseMove, arguments.Number(0), arguments.Number(1), Qt::NoButton);
  app::frmMap& window = ReachableMap(context);
  const QPoint at = Pixels(arguments.Number(0), arguments.Number(1)).toPoint();
  // Longer than any tool tip takes, by a timer of the window or by the event of the system.
  constexpr int kRestMs = 800;
  QTest::qWait(kRestMs);
  QHelpEvent event(QEvent::ToolTip, at, window.mapToGlobal(at));
  QApplication::sendEvent(&window, &event);
}

void StateCommand(const Arguments& arguments, Context& context) {
  QWidget& main = context.program.MainWindow();
  const QString state = arguments.Text(0);
  if (state == "normal")
    main.showNormal();
  else if (state == "minimised")
    main.showMinimized();
  else if (state == "maximised")
    main.showMaximized();
  else
    throw SyntaxError(QString("'%1' is not a window state").arg(state));
}

void PlaceCommand(const Arguments& arguments, Context&) {
  auto* window = FindWidget<QWidget>(arguments.Text(0));
  if (!window->isWindow())
    throw Failure(QString("'%1' is not a window that can be moved").arg(arguments.Text(0)));
  RequireReachable(window, arguments.Text(0));
  window->move(arguments.Whole(1), arguments.Whole(2));
  if (arguments.Count() == 5)
    window->resize(arguments.Whole(3), arguments.Whole(4));
}

void CloseCommand(const Arguments& arguments, Context&) {
  auto* window = FindWidget<QWidget>(arguments.Text(0));
  RequireReachable(window, arguments.Text(0));
  window->close();
}

}  // namespace zerbal::drive
