#include "app/status_bar.h"

#include <QPainter>

namespace zerbal::app {
namespace {

/// A text that changes often: it always takes the room of the longest one, so that no other control moves
/// with it, and ends in dots where the window has less.
class ReadOut final : public QLabel {
 public:
  ReadOut(const char* name, const QString& meaning, const QString& longest, QWidget* parent)
      : QLabel(parent), longest_(longest) {
    setObjectName(name);
    setAccessibleName(meaning);
    setTextFormat(Qt::PlainText);
  }

  QSize sizeHint() const override {
    return {fontMetrics().horizontalAdvance(longest_) + kAir, QLabel::sizeHint().height()};
  }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent*) override {
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    QPainter(this).drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, shown);
  }

 private:
  static constexpr int kAir = 10;  // logical pixels beside the text
  QString longest_;
};

constexpr int kLeftMargin = 8;  // logical pixels; below the first button's picture, not on the window's edge

}  // namespace

StatusBar::StatusBar(QWidget* parent) : QStatusBar(parent) {
  setObjectName("picStat");
  setContentsMargins(kLeftMargin, 0, 0, 0);
  lblPosY_ = new ReadOut("lblPosY", tr("Latitude"), QString::fromUtf8("N00° 00.00'"), this);
  lblPosX_ = new ReadOut("lblPosX", tr("Longitude"), QString::fromUtf8("W000° 00.00'"), this);
  lblMapSize_ = new ReadOut("lblMapSize", tr("Extent of the map"),
                            QString::fromUtf8("180.00° Latitude / 350.00° Longitude"), this);
  for (QLabel* label : {lblPosY_, lblPosX_, lblMapSize_})
    addWidget(label);
}

QSize StatusBar::minimumSizeHint() const {
  return {1, QStatusBar::minimumSizeHint().height()};
}

void StatusBar::ShowPosition(const QString& lonText, const QString& latText) {
  lblPosX_->setText(lonText);
  lblPosY_->setText(latText);
}

void StatusBar::ShowExtent(const QString& extentText) {
  lblMapSize_->setText(extentText);
}

}  // namespace zerbal::app
