// Tool bar pictures: vector drawings in the colour of the palette's text, crisp at every resolution.
#pragma once

#include <QIcon>
#include <QString>

namespace zerbal::app {

/// `resource` is an SVG file that paints with "currentColor" wherever it means the colour of button texts.
QIcon SvgIcon(const QString& resource);

}  // namespace zerbal::app
