// Pictures of the tool bar: vector drawings in the text colour of the palette, sharp at every resolution.
#pragma once

#include <QIcon>
#include <QString>

namespace zerbal::app {

/// `resource` is an SVG file in which "currentColor" stands for the colour of button texts.
QIcon SvgIcon(const QString& resource);

}  // namespace zerbal::app
