#include "hands.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
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

#include "report.h"
#include "user_actions.h"

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

/// With the window's name before it, as controls of several windows have the same one.
QString NameOf(const QWidget& widget) {
  const QWidget* window = widget.window();
  return window == &widget ? OwnName(widget) : OwnName(*window) + '.' + OwnName(widget);
}

/// Does it lead to the schedule's flights: a menu entry to such a dialog, or the dialog?
bool FindsFlights(const QObject& object) {
  const QString name = object.objectName();
  return name.endsWith("RandFlit") || name.endsWith("SeleFlit") || name.endsWith("SeleDest");
}

/// Is it something to work with, not only to point at?
bool DoesSomething(const QWidget* control) {
  return control->isEnabled() && (qobject_cast<const QAbstractButton*>(control) != nullptr ||
                                  qobject_cast<const QComboBox*>(control) != nullptr ||
                                  qobject_cast<const QScrollBar*>(control) != nullptr ||
                                  qobject_cast<const QAbstractItemView*>(control) != nullptr ||
                                  qobject_cast<const QLineEdit*>(control) != nullptr);
}

/// In the order in which they were made, which is the same in every run.
std::vector<QWidget*> ControlsOf(const QWidget& window) {
  std::vector<QWidget*> controls;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->isVisible() && widget->window() == &window && widget->objectName() != "frmMap")
      controls.push_back(widget);
  }
  return controls;
}

}  // namespace

void Hands::Say(const QString& action) {
  Print(QString::number(++count_) + ' ' + action);
}

void Hands::PressKey(QWidget& window, int key, Qt::KeyboardModifiers modifiers) {
  QPointer<QWidget> target = window.focusWidget() != nullptr ? window.focusWidget() : &window;
  const QString text = key >= Qt::Key_Space && key <= Qt::Key_Z ? QString(QChar(key)) : QString();
  for (const QEvent::Type type : {QEvent::ShortcutOverride, QEvent::KeyPress, QEvent::KeyRelease}) {
    if (!target)
      return;
    QKeyEvent event(type, key, modifiers, text);
    QApplication::sendEvent(target, &event);
  }
}

void Hands::PressAnyKey(QWidget& window) {
  const int key = choice_.Of(kKeys);
  const Qt::KeyboardModifiers modifiers = choice_.Of(kModifiers);
  Say(QString("key %1 with %2 in %3").arg(key, 0, 16).arg(modifiers.toInt(), 0, 16).arg(NameOf(window)));
  drive::Activate(&window);
  PressKey(window, key, modifiers);
}

void Hands::Mouse(QWidget& widget, QEvent::Type type, const QPoint& at, Qt::MouseButton button) {
  QMouseEvent event(type, at, widget.mapToGlobal(at), button, held_, Qt::NoModifier);
  QApplication::sendEvent(&widget, &event);
}

void Hands::ClickAnywhere(QWidget& widget) {
  const QPoint at(choice_.Below(widget.width()), choice_.Below(widget.height()));
  const Qt::MouseButton button = choice_.Of(kButtons);
  const bool twice = choice_.OneIn(4);
  Say(QString("%1click %2 at %3 %4 in %5")
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

void Hands::TurnWheel(QWidget& widget) {
  const QPoint turn(0, choice_.Between(-3, 3) * 120);
  Say(QString("wheel %1 over %2").arg(turn.y()).arg(NameOf(widget)));
  const QPointF at(widget.width() / 2.0, widget.height() / 2.0);
  QWheelEvent event(at, widget.mapToGlobal(at), {}, turn, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                    false);
  QApplication::sendEvent(&widget, &event);
}

void Hands::AnswerBox(QMessageBox& box) {
  if (choice_.OneIn(3)) {
    Say("box (" + box.text().simplified() + "): Escape");
    PressKey(box, Qt::Key_Escape);
    return;
  }
  const QList<QAbstractButton*> buttons = box.buttons();
  QAbstractButton* button = choice_.Of(buttons);
  Say("box (" + box.text().simplified() + "): " + button->text());
  drive::ClickMiddle(button, Qt::LeftButton);
}

void Hands::UsePopup(QWidget& popup) {
  constexpr int kMenuKeys[] = {Qt::Key_Down, Qt::Key_Down, Qt::Key_Up,     Qt::Key_Right,
                               Qt::Key_Left, Qt::Key_Home, Qt::Key_Return, Qt::Key_Return};
  if (choice_.OneIn(6)) {
    Say("leave the pop-up " + NameOf(popup));
    popup.close();
  } else if (choice_.OneIn(3)) {
    ClickAnywhere(popup);
  } else {
    const int key = choice_.Of(kMenuKeys);
    Say(QString("key %1 in the pop-up %2").arg(key, 0, 16).arg(NameOf(popup)));
    PressKey(popup, key);
  }
}

void Hands::UseDialog(QWidget& dialog) {
  const int kind = choice_.Below(100);
  if (kind < 3) {
    Close(dialog);
  } else if (kind < 14) {
    PressAnyKey(dialog);
  } else if (kind < 17) {
    const QSize size(choice_.Length(1600), choice_.Length(1200));
    Say(QString("resize to %1 x %2: %3").arg(size.width()).arg(size.height()).arg(NameOf(dialog)));
    dialog.resize(size);
  } else if (kind < 19) {
    HaveBadLuck();
  } else if (kind < 21 && !lucky_ && FindsFlights(dialog)) {
    Hurt(misfortune_.ToTheSchedule());
  } else {
    UseAnyControl(dialog);
  }
}

void Hands::HaveBadLuck() {
  Hurt(lucky_ || choice_.OneIn(2) ? misfortune_.Any() : misfortune_.ToWhatIsRead());
}

void Hands::Hurt(const Misfortune::Event& event) {
  if (choice_.OneIn(3)) {
    const int steps = choice_.Length(300);
    Say(event.Words() + QString(", %1 steps later").arg(steps));
    ambush_.Lay(event, steps);
  } else {
    Say(event.Words());
    misfortune_.Strike(event);
  }
}

void Hands::UseMainWindow(QWidget& window, app::frmMap& map) {
  if (intended_) {
    Trigger(*std::exchange(intended_, nullptr));
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
    UseAnyControl(window);
  else if (kind < 975)
    PressAnyKey(window);
  else if (kind < 995)
    HaveBadLuck();
  else
    Close(window);
}

void Hands::Trigger(QAction& entry) {
  Say("menu " + OwnName(entry));
  entry.trigger();
}

void Hands::ChooseEntry(QWidget& window) {
  std::vector<QAction*> entries;
  for (QAction* action : window.findChildren<QAction*>()) {
    const bool ends = action->objectName() == "mnuFileQuit";
    if (action->objectName().startsWith("mnu") && action->menu() == nullptr && action->isEnabled() &&
        action->isVisible() && (!ends || choice_.OneIn(10)))
      entries.push_back(action);
  }
  if (entries.empty())
    return;
  QAction* entry = choice_.Of(entries);
  if (!lucky_ && FindsFlights(*entry) && choice_.OneIn(12)) {
    intended_ = entry;
    Hurt(misfortune_.ToTheSchedule());
  } else {
    Trigger(*entry);
  }
}

void Hands::OpenMenuBar(QWidget& window) {
  auto* bar = window.findChild<QMenuBar*>();
  if (bar == nullptr || bar->actions().isEmpty() || !bar->isVisible())
    return;
  const QList<QAction*> menus = bar->actions();
  QAction* menu = choice_.Of(menus);
  Say("open the menu " + menu->text());
  const QPoint at = bar->actionGeometry(menu).center();
  Mouse(*bar, QEvent::MouseButtonPress, at, Qt::LeftButton);
  Mouse(*bar, QEvent::MouseButtonRelease, at, Qt::LeftButton);
}

void Hands::UseMouseOnMap(app::frmMap& map) {
  // Past the edges, too: the mouse is held there while a box is drawn.
  const QPoint at(choice_.Between(-20, map.width() + 20), choice_.Between(-20, map.height() + 20));
  const Qt::MouseButton button = choice_.OneIn(5) ? Qt::RightButton : Qt::LeftButton;
  const char* const words[] = {"press", "move", "move", "release"};
  const QEvent::Type types[] = {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseMove,
                                QEvent::MouseButtonRelease};
  const int step = choice_.Below(4);
  Say(QString("%1 %2 at %3 %4 on %5")
          .arg(words[step])
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

void Hands::Resize(QWidget& window, app::frmMap& map) {
  const QSize size(choice_.Length(3000), choice_.Length(2000));
  QWidget& resized = choice_.OneIn(3) ? static_cast<QWidget&>(map) : window;
  Say(QString("resize to %1 x %2: %3").arg(size.width()).arg(size.height()).arg(OwnName(resized)));
  resized.resize(size);
}

void Hands::ChangeState(QWidget& window) {
  const int state = choice_.Below(5);
  static const char* const kWords[] = {"normal", "normal", "minimised", "maximised", "full screen"};
  Say(QString("state ") + kWords[state]);
  if (state < 2)
    window.showNormal();
  else if (state == 2)
    window.showMinimized();
  else if (state == 3)
    window.showMaximized();
  else
    window.showFullScreen();
}

void Hands::UseAnyControl(const QWidget& window) {
  std::vector<QWidget*> controls = ControlsOf(window);
  // Most of what is there is only to be looked at, and a dialog that is left at once has done little.
  if (!choice_.OneIn(4))
    std::erase_if(controls, [](const QWidget* control) { return !DoesSomething(control); });
  if (!choice_.OneIn(4))
    std::erase_if(controls, [](const QWidget* control) { return control->objectName() == "cmdESC"; });
  if (!controls.empty())
    UseControl(*choice_.Of(controls));
}

void Hands::UseControl(QWidget& control) {
  auto* button = qobject_cast<QAbstractButton*>(&control);
  auto* combo = qobject_cast<QComboBox*>(&control);
  auto* bar = qobject_cast<QScrollBar*>(&control);
  auto* list = qobject_cast<QAbstractItemView*>(&control);
  const bool usable = control.isEnabled() && !choice_.OneIn(6);
  if (usable && button != nullptr) {
    const Qt::MouseButton mouse = choice_.OneIn(5) ? Qt::RightButton : Qt::LeftButton;
    Say(QString("click %1 on %2").arg(static_cast<int>(mouse)).arg(NameOf(control)));
    drive::ClickMiddle(&control, mouse);
  } else if (usable && combo != nullptr && combo->count() > 0) {
    const int index = choice_.Below(combo->count());
    Say(QString("choose %1 in %2").arg(index).arg(NameOf(control)));
    drive::Choose(combo, index);
  } else if (usable && bar != nullptr) {
    const int value = choice_.Between(bar->minimum() - 5, bar->maximum() + 5);
    Say(QString("scroll to %1 in %2").arg(value).arg(NameOf(control)));
    bar->setValue(value);
  } else if (usable && list != nullptr) {
    PickIn(*list);
  } else if (usable && qobject_cast<QLineEdit*>(&control) != nullptr) {
    TypeInto(control);
  } else if (choice_.OneIn(3)) {
    TurnWheel(control);
  } else if (choice_.OneIn(2)) {
    Say("hover " + NameOf(control));
    drive::HoverMiddle(&control);
  } else {
    ClickAnywhere(control);
  }
}

void Hands::TypeInto(QWidget& control) {
  const QString text = choice_.Text();
  const int way = choice_.Below(3);
  static const char* const kWords[] = {"type", "add", "paste"};
  Say(QString("%1 '%2' in %3").arg(kWords[way], text, NameOf(control)));
  const QPointer<QWidget> alive = &control;
  if (way == 2) {
    drive::Paste(&control, text);
    return;
  }
  if (way == 0)
    drive::FocusByTab(&control);
  else
    control.setFocus(Qt::OtherFocusReason);
  if (alive)
    drive::TypeKeys(&control, text.left(200), false);
  if (alive && way == 0)
    drive::LeaveByTab(&control);
}

void Hands::PickIn(QAbstractItemView& list) {
  const int count = list.model()->rowCount();
  std::vector<int> rows;
  for (int row = 0; row < count; ++row) {
    if (choice_.OneIn(4))
      rows.push_back(row);
  }
  Say(QString("pick %1 of %2 in %3").arg(rows.size()).arg(count).arg(NameOf(list)));
  drive::PickRows(&list, rows);
}

void Hands::Close(QWidget& window) {
  Say("close " + NameOf(window));
  window.close();
}

}  // namespace zerbal::monkey
