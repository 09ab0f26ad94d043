// Colours of the map as colours of Qt.
#pragma once

#include <QColor>

#include "data/rgb.h"

namespace zerbal::paint {

inline QColor ToQColor(data::Rgb colour) {
  return {colour.red, colour.green, colour.blue};
}

}  // namespace zerbal::paint
