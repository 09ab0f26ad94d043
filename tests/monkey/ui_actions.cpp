#include "ui_actions.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QWheelEvent>
#include <utility>
#include <vector>

#include "action_log.h"
#include "simulated_input.h"

namespace zerbal::monkey {
namespace {

constexpr Qt::MouseButton kButtons[] = {Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
constexpr int kKeys[] = {Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return,   Qt::Key_Escape, Qt::Key_Space,
                         Qt::Key_Up,  Qt::Key_Down,    Qt::Key_Left,     Qt::Key_Right,  Qt::Key_Home,
                         Qt::Key_End, Qt::Key_PageUp,  Qt::Key_PageDown, Qt::Key_Delete, Qt::Key_Backspace,
                         Qt::Key_F1,  Qt::Key_F10,     Qt::Key_A,        Qt::Key_5};
constexpr Qt::KeyboardModifier kModifiers[] = {Qt::NoModifier,    Qt::NoModifier,      Qt::NoModifier,
                                               Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};

QString OwnName(const QObject& object) {
  return object.objectName().isEmpty() ? QString(object.metaObject()->className()) : object.objectName();
}

/// WINDOW.NAME, as several windows have controls of the same name.
QString NameOf(const QWidget& widget) {
  const QWidget* window = widget.window();
  return window == &widget ? OwnName(widget) : OwnName(*window) + '.' + OwnName(widget);
}

/// True for the dialogs that search the schedule's flights and for their menu entries.
bool SearchesFlights(const QObject& object) {
  const QString name = object.objectName();
  return name.endsWith("RandFlit") || name.endsWith("SeleFlit") || name.endsWith("SeleDest");
}

/// True for enabled controls that take input.
bool TakesInput(const QWidget* control) {
  return control->isEnabled() && (qobject_cast<const QAbstractButton*>(control) != nullptr ||
                                  qobject_cast<const QComboBox*>(control) != nullptr ||
                                  qobject_cast<const QScrollBar*>(control) != nullptr ||
                                  qobject_cast<const QAbstractItemView*>(control) != nullptr ||
                                  qobject_cast<const QLineEdit*>(control) != nullptr);
}

/// The visible controls in the order of their creation, which is the same in every run.
std::vector<QWidget*> ControlsOf(const QWidget& window) {
  std::vector<QWidget*> controls;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->isVisible() && widget->window() == &window && widget->objectName() != "frmMap")
      controls.push_back(widget);
  }
  return controls;
}

}  // namespace

void UiActions::Log(const QString& action) {
  PrintLine(QString::number(++count_) + ' ' + action);
}

void UiActions::PressKey(QWidget& window, int key, Qt::KeyboardModifiers modifiers) {
  QPointer<QWidget> target = window.focusWidget() != nullptr ? window.focusWidget() : &window;
  const QString text = key >= Qt::Key_Space && key <= Qt::Key_Z ? QString(QChar(key)) : QString();
  for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::KeyRelease}) {
    if (!target)
      return;
    QKeyEvent event(type, key, modifiers, text);
    QApplication::sendEvent(target, &event);
  }
}

void UiActions::PressRandomKey(QWidget& window) {
  const int key = choice_.ElementOf(kKeys);
  const Qt::KeyboardModifiers modifiers = choice_.ElementOf(kModifiers);
  Log(QString("key %1 with %2 in %3").arg(key, 0, 16).arg(modifiers.toInt(), 0, 16).arg(NameOf(window)));
  drive::Activate(&window);
  PressKey(window, key, modifiers);
}

void UiActions::Mouse(QWidget& widget, QEvent::Type type, const QPoint& at, Qt::MouseButton button) {
  QMouseEvent event(type, at, widget.mapToGlobal(at), button, held_, Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

void UiActions::ClickSomewhere(QWidget& widget) {
  const QPoint at(choice_.Below(widget.width()), choice_.Below(widget.height()));
  const Qt::MouseButton button = choice_.ElementOf(kButtons);
  const bool twice = choice_.OneIn(4);
  Log(QString("%1click %2 at %3 %4 in %5")
          .arg(twice ? "double " : "")
          .arg(static_cast<int>(button))
          .arg(at.x())
          .arg(at.y())
          .arg(NameOf(widget)));
  const QPointer<QWidget> alive = &widget;
  drive::Activate(&widget);
  std::vector<QEvent::Type> events = {QEvent::MouseButtonPress, QEvent::MouseButtonRelease};
  if (twice)
    events.insert(events.end(), {QEvent::MouseButtonDblClick, QEvent::MouseButtonRelease});
  for (const QEvent::Type type : events) {
    if (alive)
      Mouse(widget, type, at, button);
  }
}

void UiActions::TurnWheel(QWidget& widget) {
  const QPoint turn(0, choice_.Between(-3, 3) * 120);
  Log(QString("wheel %1 over %2").arg(turn.y()).arg(NameOf(widget)));
  const QPointF at(widget.width() / 2.0, widget.height() / 2.0);
  QWheelEvent event(at, widget.mapToGlobal(at), {}, turn, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                    false);
  QApplication::sendEvent(&widget, &event);
}

void UiActions::AnswerBox(QMessageBox& box) {
  if (choice_.OneIn(3)) {
    Log("box (" + box.text().simplified() + "): Escape");
    PressKey(box, Qt::Key_Escape);
    return;
  }
  const QList<QAbstractButton*> buttons = box.buttons();
  QAbstractButton* button = choice_.ElementOf(buttons);
  Log("box (" + box.text().simplified() + "): " + button->text());
  drive::ClickMiddle(button, Qt::LeftButton);
}

void UiActions::UsePopup(QWidget& popup) {
  constexpr int kMenuKeys[] = {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up,     Qt::Key_Right,
                               Qt::Key_Left, Qt::Key_Home, Qt::Key_Return, Qt::Key_Return};
  if (choice_.OneIn(6)) {
    Log("leave the pop-up " + NameOf(popup));
    popup.close();
  } else if (choice_.OneIn(3)) {
    ClickSomewhere(popup);
  } else {
    const int key = choice_.ElementOf(kMenuKeys);
    Log(QString("key %1 in the pop-up %2").arg(key, 0, 16).arg(NameOf(popup)));
    PressKey(popup, key);
  }
}

void UiActions::UseDialog(QWidget& dialog) {
  // That of the system, which could delete any file, lists files at its own pace.
  if (qobject_cast<QFileDialog*>(&dialog) != nullptr) {
    LeaveFileDialog(dialog);
    return;
  }
  const int kind = choice_.Below(100);
  if (kind < 3) {
    Close(dialog);
  } else if (kind < 14) {
    PressRandomKey(dialog);
  } else if (kind < 17) {
    const QSize size(choice_.Length(1600), choice_.Length(1200));
    Log(QString("resize to %1 x %2: %3").arg(size.width()).arg(size.height()).arg(NameOf(dialog)));
    dialog.resize(size);
  } else if (kind < 19) {
    CorruptRandomFile();
  } else if (kind < 21 && corruptsFilesInUse_ && SearchesFlights(dialog)) {
    Corrupt(corrupter_.ChooseForSchedule());
  } else {
    UseRandomControl(dialog);
  }
}

void UiActions::LeaveFileDialog(QWidget& dialog) {
  const bool save = choice_.OneIn(2);
  Log(save ? "save the suggested file" : "save nothing");
  PressKey(dialog, save ? Qt::Key_Return : Qt::Key_Escape);
}

void UiActions::CorruptRandomFile() {
  Corrupt(!corruptsFilesInUse_ || choice_.OneIn(2) ? corrupter_.ChooseAny()
                                                   : corrupter_.ChooseForFilesInUse());
}

void UiActions::Corrupt(const FileCorruption& corruption) {
  if (choice_.OneIn(3)) {
    const int steps = choice_.Length(300);
    Log(corruption.Description() + QString(", %1 steps later").arg(steps));
    delayedCorruption_.Schedule(corruption, steps);
  } else {
    Log(corruption.Description());
    corrupter_.Apply(corruption);
  }
}

void UiActions::UseMainWindow(QWidget& window, app::frmMap& map) {
  if (pendingEntry_) {
    Trigger(*std::exchange(pendingEntry_, nullptr));
    return;
  }
  const int kind = choice_.Below(1000);
  if (kind < 350)
    ChooseEntry(window);
  else if (kind < 400)
    OpenMenuBar(window);
  else if (kind < 650)
    UseMouseOnMap(map);
  else if (kind < 750)
    Resize(window, map);
  else if (kind < 790)
    ChangeState(window);
  else if (kind < 930)
    UseRandomControl(window);
  else if (kind < 975)
    PressRandomKey(window);
  else if (kind < 995)
    CorruptRandomFile();
  else
    Close(window);
}

void UiActions::Trigger(QAction& entry) {
  Log("menu " + OwnName(entry));
  entry.trigger();
}

void UiActions::ChooseEntry(QWidget& window) {
  std::vector<QAction*> entries;
  for (QAction* action : window.findChildren<QAction*>()) {
    const bool endsProgram = action->objectName() == "mnuFileQuit";
    if (action->objectName().startsWith("mnu") && action->menu() == nullptr && action->isEnabled() &&
        action->isVisible() && (!endsProgram || choice_.OneIn(10)))
      entries.push_back(action);
  }
  if (entries.empty())
    return;
  QAction* entry = choice_.ElementOf(entries);
  if (corruptsFilesInUse_ && SearchesFlights(*entry) && choice_.OneIn(12)) {
    pendingEntry_ = entry;
    Corrupt(corrupter_.ChooseForSchedule());
  } else {
    Trigger(*entry);
  }
}

void UiActions::OpenMenuBar(QWidget& window) {
  auto* bar = window.findChild<QMenuBar*>();
  if (bar == nullptr || bar->actions().isEmpty() || !bar->isVisible())
    return;
  const QList<QAction*> menus = bar->actions();
  QAction* menu = choice_.ElementOf(menus);
  Log("open the menu " + menu->text());
  const QPoint at = bar->actionGeometry(menu).center();
  Mouse(*bar, QEvent::MouseButtonPress, at, Qt::LeftButton);
  Mouse(*bar, QEvent::MouseButtonRelease, at, Qt::LeftButton);
}

void UiActions::UseMouseOnMap(app::frmMap& map) {
  // Also outside of the window, where the mouse can be while a zoom box is drawn.
  const QPoint at(choice_.Between(-20, map.width() + 20), choice_.Between(-20, map.height() + 20));
  const Qt::MouseButton button = choice_.OneIn(5) ? Qt::RightButton : Qt::LeftButton;
  const char* const names[] = {"press", "move", "move", "release"};
  const QEvent::Type types[] = {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseMove,
                                QEvent::MouseButtonRelease};
  const int step = choice_.Below(4);
  Log(QString("%1 %2 at %3 %4 on %5")
          .arg(names[step])
          .arg(static_cast<int>(button))
          .arg(at.x())
          .arg(at.y())
          .arg(OwnName(map)));
  if (step == 0)
    held_ |= button;
  else if (step == 3)
    held_ &= ~Qt::MouseButtons(button);
  Mouse(map, types[step], at, types[step] == QEvent::MouseMove ? Qt::NoButton : button);
}

void UiActions::Resize(QWidget& window, app::frmMap& map) {
  const QSize size(choice_.Length(3000), choice_.Length(2000));
  QWidget& resized = choice_.OneIn(3) ? static_cast<QWidget&>(map) : window;
  Log(QString("resize to %1 x %2: %3").arg(size.width()).arg(size.height()).arg(OwnName(resized)));
  resized.resize(size);
}

void UiActions::ChangeState(QWidget& window) {
  const int state = choice_.Below(5);
  static const char* const kStates[] = {"normal", "normal", "minimised", "maximised", "full screen"};
  Log(QString("state ") + kStates[state]);
  if (state < 2)
    window.showNormal();
  else if (state == 2)
    window.showMinimized();
  else if (state == 3)
    window.showMaximized();
  else
    window.showFullScreen();
}

void UiActions::UseRandomControl(const QWidget& window) {
  std::vector<QWidget*> controls = ControlsOf(window);
  // Prefers controls that take input, and seldom leaves the dialog.
  if (!choice_.OneIn(4))
    std::erase_if(controls, [](const QWidget* control) { return !TakesInput(control); });
  if (!choice_.OneIn(4))
    std::erase_if(controls, [](const QWidget* control) { return control->objectName() == "cmdESC"; });
  if (!controls.empty())
    UseControl(*choice_.ElementOf(controls));
}

void UiActions::UseControl(QWidget& control) {
  auto* button = qobject_cast<QAbstractButton*>(&control);
  auto* combo = qobject_cast<QComboBox*>(&control);
  auto* bar = qobject_cast<QScrollBar*>(&control);
  auto* list = qobject_cast<QAbstractItemView*>(&control);
  const bool usable = control.isEnabled() && !choice_.OneIn(6);
  if (usable && button != nullptr) {
    const Qt::MouseButton mouse = choice_.OneIn(5) ? Qt::RightButton : Qt::LeftButton;
    Log(QString("click %1 on %2").arg(static_cast<int>(mouse)).arg(NameOf(control)));
    drive::ClickMiddle(&control, mouse);
  } else if (usable && combo != nullptr && combo->count() > 0) {
    const int index = choice_.Below(combo->count());
    Log(QString("choose %1 in %2").arg(index).arg(NameOf(control)));
    drive::Choose(combo, index);
  } else if (usable && bar != nullptr) {
    const int value = choice_.Between(bar->minimum() - 5, bar->maximum() + 5);
    Log(QString("scroll to %1 in %2").arg(value).arg(NameOf(control)));
    bar->setValue(value);
  } else if (usable && list != nullptr) {
    PickIn(*list);
  } else if (usable && qobject_cast<QLineEdit*>(&control) != nullptr) {
    TypeInto(control);
  } else if (choice_.OneIn(3)) {
    TurnWheel(control);
  } else if (choice_.OneIn(2)) {
    Log("hover " + NameOf(control));
    drive::HoverMiddle(&control);
  } else {
    ClickSomewhere(control);
  }
}

void UiActions::TypeInto(QWidget& control) {
  const QString text = choice_.Text();
  const int method = choice_.Below(3);
  static const char* const kMethods[] = {"type", "append", "paste"};
  Log(QString("%1 '%2' in %3").arg(kMethods[method], text, NameOf(control)));
  const QPointer<QWidget> alive = &control;
  if (method == 2) {
    drive::Paste(&control, text);
    return;
  }
  if (method == 0)
    drive::FocusByTab(&control);
  else
    control.setFocus(Qt::OtherFocusReason);
  if (alive)
    drive::TypeKeys(&control, text.left(200), false);
  if (alive && method == 0)
    drive::LeaveByTab(&control);
}

void UiActions::PickIn(QAbstractItemView& list) {
  const int count = list.model()->rowCount();
  std::vector<int> rows;
  for (int row = 0; row < count; ++row) {
    if (choice_.OneIn(4))
      rows.push_back(row);
  }
  Log(QString("pick %1 of %2 in %3").arg(rows.size()).arg(count).arg(NameOf(list)));
  drive::PickRows(&list, rows);
}

void UiActions::Close(QWidget& window) {
  Log("close " + NameOf(window));
  window.close();
}

}  // namespace zerbal::monkey
