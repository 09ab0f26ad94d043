// Windows that get the program's icon after their contents. A window asks for four pictures of its icon
// before it is shown.
#pragma once

#include <QWidget>

namespace zerbal::app {

/// Shows `window` without an icon.
void ShowWithoutIcon(QWidget& window);

/// Gives `window` the icon of the program after `content`, a part of it, has been painted.
void SetIconAfterPaint(QWidget& window, QWidget& content);

}  // namespace zerbal::app
