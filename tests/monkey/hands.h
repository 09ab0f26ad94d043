// What the monkey does to the windows it finds: everything a user's hands can do, and some bad luck with
// the files. Every action is printed before it is done, so that the last line names the culprit.
#pragma once

#include <QAbstractItemView>
#include <QAction>
#include <QEvent>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QWidget>

#include "ambush.h"
#include "app/frm_map.h"
#include "choice.h"
#include "misfortune.h"

namespace zerbal::monkey {

class Hands {
 public:
  Hands(Choice& choice, Misfortune& misfortune, Ambush& ambush)
      : choice_(choice), misfortune_(misfortune), ambush_(ambush), lucky_(choice.OneIn(2)) {}

  void AnswerBox(QMessageBox& box);
  void UsePopup(QWidget& popup);
  void UseDialog(QWidget& dialog);
  void UseMainWindow(QWidget& window, app::frmMap& map);

 private:
  void Say(const QString& action);
  void PressKey(QWidget& window, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void PressAnyKey(QWidget& window);
  void Mouse(QWidget& widget, QEvent::Type type, const QPoint& at, Qt::MouseButton button);
  void ClickAnywhere(QWidget& widget);
  void TurnWheel(QWidget& widget);
  void Trigger(QAction& entry);
  void ChooseEntry(QWidget& window);
  void OpenMenuBar(QWidget& window);
  void UseMouseOnMap(app::frmMap& map);
  void Resize(QWidget& window, app::frmMap& map);
  void ChangeState(QWidget& window);
  void UseAnyControl(const QWidget& window);
  void UseControl(QWidget& control);
  void TypeInto(QWidget& control);
  void PickIn(QAbstractItemView& list);
  void Close(QWidget& window);

  void HaveBadLuck();
  void Hurt(const Misfortune::Event& event);

  Choice& choice_;
  Misfortune& misfortune_;
  Ambush& ambush_;
  /// Nobody is after the files that are just being read; such lives are longer.
  const bool lucky_;
  /// Chosen when a misfortune came between.
  QPointer<QAction> intended_;
  int count_ = 0;
  Qt::MouseButtons held_;
};

}  // namespace zerbal::monkey
