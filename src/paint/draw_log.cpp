#include "paint/draw_log.h"

#include <QLoggingCategory>

namespace zerbal::paint {
namespace {

// The default threshold is above that of warnings.
Q_LOGGING_CATEGORY(drawLog, "zerbal.draw", QtCriticalMsg)

}  // namespace

void LogDrawError(const std::string& line) {
  qCWarning(drawLog).noquote() << QString::fromStdString(line);
}

}  // namespace zerbal::paint
