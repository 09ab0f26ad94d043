#include "app/late_icon.h"

#include <QApplication>
#include <QEvent>
#include <QIcon>
#include <QIconEngine>
#include <QTimer>

#include "dialogs/guarded.h"

namespace zerbal::app {
namespace {

class EmptyIconEngine final : public QIconEngine {
 public:
  void paint(QPainter*, const QRect&, QIcon::Mode, QIcon::State) override {}
  QPixmap pixmap(const QSize&, QIcon::Mode, QIcon::State) override { return {}; }
  QIconEngine* clone() const override { return new EmptyIconEngine; }
};

/// Gives `window` the icon of the program after the first paint event of the watched one.
class IconAfterPaint final : public QObject {
 public:
  IconAfterPaint(QWidget& window, QWidget& content) : QObject(&content), window_(window) {
    content.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint)
      return false;
    watched->removeEventFilter(this);
    QTimer::singleShot(0, &window_, [&window = window_] {
      dialogs::Guarded([&] { window.setWindowIcon(QApplication::windowIcon()); });
    });
    deleteLater();
    return false;
  }

 private:
  QWidget& window_;
};

}  // namespace

void ShowWithoutIcon(QWidget& window) {
  window.setWindowIcon(QIcon(new EmptyIconEngine));
  // Of a new window, Qt takes the icon of the application first.
  const QIcon icon = QApplication::windowIcon();
  QApplication::setWindowIcon({});
  window.show();
  QApplication::setWindowIcon(icon);
}

void SetIconAfterPaint(QWidget& window, QWidget& content) {
  new IconAfterPaint(window, content);
}

}  // namespace zerbal::app
