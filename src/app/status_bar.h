// The status bar: the position under the mouse and the extent of the view.
#pragma once

#include <QStatusBar>

namespace zerbal::app {

class StatusBar final : public QStatusBar {
  Q_OBJECT

 public:
  explicit StatusBar(QWidget* parent);

  /// The window may be narrower than all texts together; then the extent, the longest one, is cut first.
  QSize minimumSizeHint() const override;

  void ShowPosition(const QString& lonText, const QString& latText);
  void ShowExtent(const QString& extentText);

 private:
  class ReadOut;

  ReadOut* lblPosX_;
  ReadOut* lblPosY_;
  ReadOut* lblMapSize_;
};

}  // namespace zerbal::app
