// Qt without a screen and without the user's settings.
#pragma once

#include <QSettings>
#include <QString>
#include <QtGlobal>
#include <iostream>

namespace zerbal::test {

/// Drops the messages of the offscreen platform about window properties that it does not support.
inline void PrintOtherMessages(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  if (!message.startsWith("This plugin does not support"))
    std::cerr << qFormatLogMessage(type, context, message).toStdString() << std::endl;
}

/// Selects the offscreen platform unless the environment names another one. Call it before QApplication is
/// created.
inline void UseOffscreenPlatform() {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "offscreen");
  // The file dialog keeps its state in a file of the user, which tests neither read nor change.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null");
  qInstallMessageHandler(PrintOtherMessages);
}

}  // namespace zerbal::test
