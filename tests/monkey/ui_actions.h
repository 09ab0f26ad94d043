// Random user actions on the windows that are open, and corruption of files between them. Each action is
// logged before it is done, so that the last line names the action that failed.
#pragma once

#include <QAbstractItemView>
#include <QAction>
#include <QEvent>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QWidget>

#include "app/frm_map.h"
#include "delayed_corruption.h"
#include "file_corruption.h"
#include "random_choice.h"

namespace zerbal::monkey {

class UiActions {
 public:
  UiActions(RandomChoice& choice, FileCorrupter& corrupter, DelayedCorruption& delayedCorruption)
      : choice_(choice),
        corrupter_(corrupter),
        delayedCorruption_(delayedCorruption),
        corruptsFilesInUse_(!choice.OneIn(2)) {}

  void AnswerBox(QMessageBox& box);
  void UsePopup(QWidget& popup);
  void UseDialog(QWidget& dialog);
  void UseMainWindow(QWidget& window, app::frmMap& map);

 private:
  void Log(const QString& action);
  void PressKey(QWidget& window, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  void PressRandomKey(QWidget& window);
  void Mouse(QWidget& widget, QEvent::Type type, const QPoint& at, Qt::MouseButton button);
  void ClickSomewhere(QWidget& widget);
  void TurnWheel(QWidget& widget);
  void Trigger(QAction& entry);
  void ChooseEntry(QWidget& window);
  void OpenMenuBar(QWidget& window);
  void UseMouseOnMap(app::frmMap& map);
  void Resize(QWidget& window, app::frmMap& map);
  void ChangeState(QWidget& window);
  void UseRandomControl(const QWidget& window);
  void UseControl(QWidget& control);
  void TypeInto(QWidget& control);
  void PickIn(QAbstractItemView& list);
  void Close(QWidget& window);

  void LeaveFileDialog(QWidget& dialog);
  void CorruptRandomFile();
  /// Now or, one time in three, after some steps of the program.
  void Corrupt(const FileCorruption& corruption);

  RandomChoice& choice_;
  FileCorrupter& corrupter_;
  DelayedCorruption& delayedCorruption_;
  /// Prefers databases that the program is about to read. Sessions without it last longer.
  const bool corruptsFilesInUse_;
  /// Chosen before a corruption of the schedule, which precedes it.
  QPointer<QAction> pendingEntry_;
  int count_ = 0;
  Qt::MouseButtons held_;
};

}  // namespace zerbal::monkey
