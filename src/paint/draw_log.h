// The log of drawing errors.
#pragma once

#include <string>

namespace zerbal::paint {

/// Logs the line in the category "zerbal.draw", which is off unless logging rules of Qt enable it (see
/// QLoggingCategory). For MapScene::logError.
void LogDrawError(const std::string& line);

}  // namespace zerbal::paint
