#include "app/status_bar.h"

#include <QLabel>
#include <QPainter>

namespace zerbal::app {

/// A text that changes often. Its size is that of the longest text, so that other controls do not move. It is
/// shortened by an ellipsis when the window is too narrow.
class StatusBar::ReadOut final : public QLabel {
 public:
  ReadOut(const char* name, const QString& meaning, const QString& longest, QWidget* parent)
      : QLabel(parent), meaning_(meaning), longest_(longest) {
    setObjectName(name);
    setAccessibleName(meaning);
    setTextFormat(Qt::PlainText);
  }

  /// Assistive programs read the name in place of the text.
  void Show(const QString& shown) {
    setText(shown);
    setAccessibleName(meaning_ + ": " + shown);
  }

  QSize sizeHint() const override {
    return {fontMetrics().horizontalAdvance(longest_) + kPadding, QLabel::sizeHint().height()};
  }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent*) override {
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    QPainter(this).drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter, shown);
  }

 private:
  static constexpr int kPadding = 10;  // logical pixels to the right of the text
  QString meaning_;
  QString longest_;
};

namespace {

constexpr int kLeftMargin = 8;  // logical pixels; aligns the text with the first button's picture

}  // namespace

StatusBar::StatusBar(QWidget* parent) : QStatusBar(parent) {
  setObjectName("picStat");
  setAccessibleName(tr("Status bar"));
  setContentsMargins(kLeftMargin, 0, 0, 0);
  lblPosY_ = new ReadOut("lblPosY", tr("Latitude"), QString::fromUtf8("N00° 00.00'"), this);
  lblPosX_ = new ReadOut("lblPosX", tr("Longitude"), QString::fromUtf8("W000° 00.00'"), this);
  lblMapSize_ = new ReadOut("lblMapSize", tr("Extent of the map"),
                            QString::fromUtf8("180.00° Latitude / 350.00° Longitude"), this);
  for (ReadOut* label : {lblPosY_, lblPosX_, lblMapSize_})
    addWidget(label);
}

QSize StatusBar::minimumSizeHint() const {
  return {1, QStatusBar::minimumSizeHint().height()};
}

void StatusBar::ShowPosition(const QString& lonText, const QString& latText) {
  lblPosX_->Show(lonText);
  lblPosY_->Show(latText);
}

void StatusBar::ShowExtent(const QString& extentText) {
  lblMapSize_->Show(extentText);
}

}  // namespace zerbal::app
