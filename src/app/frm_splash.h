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

 private:
  QPixmap Draw() const;

  QPixmap picture_;  ///< drawn once for the screen it stands on: the start waits for every painting
};

}  // namespace zerbal::app
