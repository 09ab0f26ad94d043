// zerbal-map except main().
#pragma once

#include <QStringList>
#include <iosfwd>

namespace zerbal::mapcommand {

/// Draws one map as `words` (without the program's name) say. Errors go to `errors`. Returns the exit status:
/// 0 done, 1 the data or a file is not valid, 2 the command line is not valid. When `errors` is a terminal,
/// it also shows the progress of what takes longer than a second. Needs a QGuiApplication.
int Run(const QStringList& words, std::ostream& output, std::ostream& errors, bool errorsAreTerminal);

}  // namespace zerbal::mapcommand
