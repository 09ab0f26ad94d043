// The whole of zerbal-map but for main().
#pragma once

#include <QStringList>
#include <iosfwd>

namespace zerbal::mapcommand {

/// Draws one map as `words` (without the program's name) say. Errors go to `errors`. Returns the exit status:
/// 0 done, 1 something is wrong with the data or a file, 2 the command makes no sense. Needs a
/// QGuiApplication.
int Run(const QStringList& words, std::ostream& output, std::ostream& errors);

}  // namespace zerbal::mapcommand
