// Asks for the file that the map is saved in.
#pragma once

#include <QString>
#include <QWidget>
#include <optional>

namespace zerbal::dialogs {

/// Shows the file dialog of the system. `suggestion` is the path that it begins with. The result ends in
/// .png, .svg or .pdf; the user has agreed to replace a file that exists. nullopt when the user aborts.
std::optional<QString> AskMapFile(QWidget& parent, const QString& suggestion);

}  // namespace zerbal::dialogs
