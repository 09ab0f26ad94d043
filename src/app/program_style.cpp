#include "app/program_style.h"

#include <QIconEngine>
#include <QPainter>
#include <functional>
#include <optional>
#include <utility>

namespace zerbal::app {
namespace {

/// Makes its icon when it is first drawn.
class LateIconEngine final : public QIconEngine {
 public:
  explicit LateIconEngine(std::function<QIcon()> make) : make_(std::move(make)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
    Icon().paint(painter, rect, Qt::AlignCenter, mode, state);
  }
  /// `size` is in device pixels.
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return Icon().pixmap(size, 1.0, mode, state);
  }
  QIconEngine* clone() const override { return new LateIconEngine(*this); }

 private:
  const QIcon& Icon() {
    if (!icon_)
      icon_ = make_();
    return *icon_;
  }

  std::function<QIcon()> make_;
  std::optional<QIcon> icon_;
};

}  // namespace

QIcon ProgramStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                 const QWidget* widget) const {
  if (icon != SP_ToolBarHorizontalExtensionButton)
    return QProxyStyle::standardIcon(icon, option, widget);
  return QIcon(new LateIconEngine([this, icon] { return QProxyStyle::standardIcon(icon); }));
}

}  // namespace zerbal::app
