#include "app/svg_icon.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>

namespace zerbal::app {
namespace {

class SvgIconEngine final : public QIconEngine {
 public:
  explicit SvgIconEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    // Reads the palette each time, because it changes between light and dark themes.
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    const QColor text = QApplication::palette().color(group, QPalette::ButtonText);
    QByteArray coloured = drawing_;
    QSvgRenderer renderer(coloured.replace("currentColor", text.name().toLatin1()));
    if (mode == QIcon::Disabled)
      painter->setOpacity(0.5 * painter->opacity());
    renderer.render(painter, rect);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, picture.rect(), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new SvgIconEngine(drawing_); }

 private:
  QByteArray drawing_;
};

}  // namespace

QIcon SvgIcon(const QString& resource) {
  QFile file(resource);
  if (!file.open(QIODevice::ReadOnly))
    return {};
  return QIcon(new SvgIconEngine(file.readAll()));
}

}  // namespace zerbal::app
