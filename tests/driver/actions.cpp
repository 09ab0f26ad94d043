#include "actions.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <numeric>

#include "controls.h"
#include "user_actions.h"

namespace zerbal::drive {
namespace {

Qt::MouseButtons ButtonsOf(const QString& word) {
  if (word == "left")
    return Qt::LeftButton;
  if (word == "right")
    return Qt::RightButton;
  if (word == "both")
    return Qt::LeftButton | Qt::RightButton;
  throw NotACommand(QString("'%1' is no mouse button").arg(word));
}

void SendToMap(Stage& stage, QEvent::Type type, double x, double y, Qt::MouseButton button) {
  app::frmMap& window = stage.program.MapWindow();
  RequireReachable(&window, "frmMap");
  const QPointF at(x / kTwipsPerPixel, y / kTwipsPerPixel);
  QMouseEvent event(type, at, window.mapToGlobal(at), button, stage.heldButtons, Qt::NoModifier);
  QApplication::sendEvent(&window, &event);
}

}  // namespace

void MenuCommand(const Arguments& arguments, Stage&) {
  const QString name = arguments.Text(0);
  QAction* action = Find(name).action;
  if (!action)
    throw Failure(QString("'%1' is no menu entry").arg(name));
  RequireUsable(action, name);
  // Choosing an entry of an open pop-up menu closes it.
  if (QWidget* popup = QApplication::activePopupWidget())
    popup->close();
  action->trigger();
}

void ClickCommand(const Arguments& arguments, Stage&) {
  auto* widget = FindWidget<QWidget>(arguments.Text(0));
  RequireReachable(widget, arguments.Text(0));
  ClickMiddle(widget, Qt::LeftButton);
}

void RightClickCommand(const Arguments& arguments, Stage&) {
  auto* widget = FindWidget<QWidget>(arguments.Text(0));
  RequireReachable(widget, arguments.Text(0));
  ClickMiddle(widget, Qt::RightButton);
}

void TextCommand(const Arguments& arguments, Stage&) {
  auto* widget = FindWidget<QWidget>(arguments.Text(0));
  RequireUsable(widget, arguments.Text(0));
  const QPointer<QWidget> alive = widget;
  FocusByTab(widget);
  TypeKeys(widget, arguments.Text(1), false);
  if (alive)
    LeaveByTab(widget);
}

void KeysCommand(const Arguments& arguments, Stage&) {
  auto* widget = FindWidget<QWidget>(arguments.Text(0));
  RequireUsable(widget, arguments.Text(0));
  Activate(widget);
  // Neither a Tab nor a mouse focus, so that nothing is selected beforehand.
  if (widget->window()->focusWidget() != widget && !widget->isWindow())
    widget->setFocus(Qt::OtherFocusReason);
  TypeKeys(widget, arguments.Text(1), true);
}

void PasteCommand(const Arguments& arguments, Stage&) {
  auto* widget = FindWidget<QWidget>(arguments.Text(0));
  RequireUsable(widget, arguments.Text(0));
  Paste(widget, arguments.Text(1));
}

void ChooseCommand(const Arguments& arguments, Stage&) {
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

void PickCommand(const Arguments& arguments, Stage&) {
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
        throw NotACommand(QString("'%1' is no line number").arg(part));
    }
  }
  PickRows(list, rows);
}

void ScrollCommand(const Arguments& arguments, Stage&) {
  auto* bar = FindWidget<QScrollBar>(arguments.Text(0));
  RequireUsable(bar, arguments.Text(0));
  bar->setValue(arguments.Whole(1));
}

void HoverCommand(const Arguments& arguments, Stage&) {
  auto* widget = FindWidget<QWidget>(arguments.Text(0));
  RequireReachable(widget, arguments.Text(0));
  HoverMiddle(widget);
}

void MapSizeCommand(const Arguments& arguments, Stage& stage) {
  QWidget& main = stage.program.MainWindow();
  app::frmMap& mapWindow = stage.program.MapWindow();
  const QSize wanted(arguments.Whole(0), arguments.Whole(1));
  main.resize(main.size() + wanted - mapWindow.size());
  QApplication::sendPostedEvents();
  // A main window cannot be smaller than its tool bar; its child can.
  if (mapWindow.size() != wanted)
    mapWindow.resize(wanted);
}

void PressCommand(const Arguments& arguments, Stage& stage) {
  const Qt::MouseButtons buttons = ButtonsOf(arguments.Text(0));
  stage.heldButtons |= buttons;
  const auto button = buttons.testFlag(Qt::LeftButton) ? Qt::LeftButton : Qt::RightButton;
  SendToMap(stage, QEvent::MouseButtonPress, arguments.Number(1), arguments.Number(2), button);
}

void MoveCommand(const Arguments& arguments, Stage& stage) {
  SendToMap(stage, QEvent::MouseMove, arguments.Number(0), arguments.Number(1), Qt::NoButton);
}

void ReleaseCommand(const Arguments& arguments, Stage& stage) {
  const Qt::MouseButtons buttons = ButtonsOf(arguments.Text(0));
  stage.heldButtons &= ~buttons;
  for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
    if (buttons.testFlag(button))
      SendToMap(stage, QEvent::MouseButtonRelease, arguments.Number(1), arguments.Number(2), button);
  }
}

void StateCommand(const Arguments& arguments, Stage& stage) {
  QWidget& main = stage.program.MainWindow();
  const QString state = arguments.Text(0);
  if (state == "normal")
    main.showNormal();
  else if (state == "minimised")
    main.showMinimized();
  else if (state == "maximised")
    main.showMaximized();
  else
    throw NotACommand(QString("'%1' is no window state").arg(state));
}

void PlaceCommand(const Arguments& arguments, Stage&) {
  auto* window = FindWidget<QWidget>(arguments.Text(0));
  if (!window->isWindow())
    throw Failure(QString("'%1' is no window that can be moved").arg(arguments.Text(0)));
  RequireReachable(window, arguments.Text(0));
  window->move(arguments.Whole(1), arguments.Whole(2));
  if (arguments.Count() == 5)
    window->resize(arguments.Whole(3), arguments.Whole(4));
}

void CloseCommand(const Arguments& arguments, Stage&) {
  auto* window = FindWidget<QWidget>(arguments.Text(0));
  RequireReachable(window, arguments.Text(0));
  window->close();
}

}  // namespace zerbal::drive
