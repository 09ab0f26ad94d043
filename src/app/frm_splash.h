// The window that bridges the start.
#pragma once

#include <QPixmap>
#include <QWidget>

namespace zerbal::app {

class frmSplash final : public QWidget {
  Q_OBJECT

 public:
  frmSplash();

 protected:
  void paintEvent(QPaintEvent* event) override;
  /// It goes when the program lets it go.
  void closeEvent(QCloseEvent* event) override;
};

}  // namespace zerbal::app
