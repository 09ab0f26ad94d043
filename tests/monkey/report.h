// What the monkey says while it lives. Equal lives say equal lines: the folder, whose name is made up anew in
// every run, is left out.
#pragma once

#include <QDir>
#include <QString>
#include <iostream>

namespace zerbal::monkey {

inline void Print(QString line) {
  line.replace(QDir::currentPath() + '/', QString());
  std::cout << line.left(200).toStdString() << std::endl;
}

}  // namespace zerbal::monkey
