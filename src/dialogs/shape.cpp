#include "dialogs/shape.h"

#include <QPainter>
#include <algorithm>

namespace zerbal::dialogs {
namespace {

QColor ExclusiveOr(const QColor& a, const QColor& b) {
  return {a.red() ^ b.red(), a.green() ^ b.green(), a.blue() ^ b.blue()};
}

}  // namespace

Shape::Shape(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Shape::SetColour(const QColor& colour) {
  colour_ = colour;
  setAccessibleDescription(
      tr("red %1, green %2, blue %3").arg(colour.red()).arg(colour.green()).arg(colour.blue()));
  update();
}

void Shape::SetKind(Kind kind) {
  kind_ = kind;
  update();
}

void Shape::SetLineWidth(int width) {
  lineWidth_ = width;
  update();
}

void Shape::SetBackground(const QColor& colour) {
  background_ = colour;
  update();
}

void Shape::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect area = rect();
  const QPoint centre = area.center();
  switch (kind_) {
    case Kind::kSwatch:
      painter.fillRect(area, colour_);
      painter.setPen(palette().color(QPalette::Mid));
      painter.drawRect(area.adjusted(0, 0, -1, -1));
      break;
    case Kind::kDisc:
      painter.setRenderHint(QPainter::Antialiasing);
      painter.setPen(Qt::NoPen);
      painter.setBrush(colour_);
      painter.drawEllipse(QPointF(centre), 2.5, 2.5);
      break;
    case Kind::kCentreMark: {
      const int radius = std::min(area.width(), area.height()) / 2 - 2;
      painter.setPen(colour_);
      painter.drawLine(centre.x() - radius, centre.y(), centre.x() + radius, centre.y());
      painter.drawLine(centre.x(), centre.y() - radius, centre.x(), centre.y() + radius);
      painter.setRenderHint(QPainter::Antialiasing);
      painter.drawEllipse(QPointF(centre) + QPointF(0.5, 0.5), radius, radius);
      break;
    }
    case Kind::kLine:
      painter.fillRect(QRect(0, centre.y() - (lineWidth_ - 1) / 2, area.width(), lineWidth_), colour_);
      break;
    case Kind::kVerticalLine:
      painter.fillRect(QRect(centre.x() - (lineWidth_ - 1) / 2, 0, lineWidth_, area.height()), colour_);
      break;
    case Kind::kInvertedFrame:
      painter.setPen(QPen(ExclusiveOr(colour_, background_), 1, Qt::DotLine));
      painter.drawRect(area.adjusted(0, 0, -1, -1));
      break;
  }
}

}  // namespace zerbal::dialogs
