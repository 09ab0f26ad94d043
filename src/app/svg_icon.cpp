#include "app/svg_icon.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <map>
#include <tuple>

namespace zerbal::app {
namespace {

class SvgIconEngine final : public QIconEngine {
 public:
  explicit SvgIconEngine(QByteArray drawing) : drawing_(std::move(drawing)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    QByteArray coloured = drawing_;
    QSvgRenderer renderer(coloured.replace("currentColor", TextColour(mode).name().toLatin1()));
    if (mode == QIcon::Disabled)
      painter->setOpacity(0.5 * painter->opacity());
    renderer.render(painter, rect);
  }

  /// Each window asks twice for the pictures of its icon.
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap& picture = pictures_[{size.width(), size.height(), mode, TextColour(mode).rgba()}];
    if (picture.isNull()) {
      picture = QPixmap(size);
      picture.fill(Qt::transparent);
      QPainter painter(&picture);
      paint(&painter, picture.rect(), mode, state);
    }
    return picture;
  }

  QIconEngine* clone() const override { return new SvgIconEngine(drawing_); }

 private:
  /// Reads the palette each time, because it changes between light and dark themes.
  static QColor TextColour(QIcon::Mode mode) {
    const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
    return QApplication::palette().color(group, QPalette::ButtonText);
  }

  QByteArray drawing_;
  std::map<std::tuple<int, int, QIcon::Mode, QRgb>, QPixmap> pictures_;  ///< by what they depend on
};

}  // namespace

QIcon SvgIcon(const QString& resource) {
  QFile file(resource);
  if (!file.open(QIODevice::ReadOnly))
    return {};
  return QIcon(new SvgIconEngine(file.readAll()));
}

}  // namespace zerbal::app
