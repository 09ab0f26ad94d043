// The style of the program's windows.
#pragma once

#include <QProxyStyle>

namespace zerbal::app {

/// The desktop's style. A menu bar asks for the picture of the button that replaces entries without room even
/// when it has room for all; Qt then loads the plugins of all image formats. Here that happens when the
/// button is shown.
class ProgramStyle final : public QProxyStyle {
  Q_OBJECT

 public:
  QIcon standardIcon(StandardPixmap icon, const QStyleOption* option = nullptr,
                     const QWidget* widget = nullptr) const override;
};

}  // namespace zerbal::app
