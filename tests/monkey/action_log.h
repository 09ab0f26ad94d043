// What a session prints. Equal sessions print equal lines: the path of the working directory, which differs
// in every run, is removed.
#pragma once

#include <QDir>
#include <QString>
#include <iostream>

namespace zerbal::monkey {

/// Prints at most 200 characters of `line`.
inline void PrintLine(QString line) {
  line.replace(QDir::currentPath() + '/', QString());
  std::cout << line.left(200).toStdString() << std::endl;
}

}  // namespace zerbal::monkey
