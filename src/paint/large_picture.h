// Memory for pictures as large as a window.
#pragma once

#include <QImage>

namespace zerbal::paint {

/// A picture of format RGB32 in huge pages, where the system has them: the first drawing on it then takes a
/// part of the time, because there are few pages to be mapped. Its pixels are undefined. Null when there is
/// not enough memory, or without a size.
QImage LargePicture(const QSize& pixels);

}  // namespace zerbal::paint
