// The window that is shown during the start.
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
  /// The user cannot close it.
  void closeEvent(QCloseEvent* event) override;

 private:
  QPixmap Draw() const;

  QPixmap picture_;  ///< drawn once per screen resolution, because drawing delays the start
};

}  // namespace zerbal::app
