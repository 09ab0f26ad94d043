// The keys that open what the right mouse button opens.
#pragma once

#include <QKeyEvent>

namespace zerbal::app {

/// The Menu key and Shift+F10.
inline bool IsMenuKey(const QKeyEvent& event) {
  return event.key() == Qt::Key_Menu ||
         (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

}  // namespace zerbal::app
