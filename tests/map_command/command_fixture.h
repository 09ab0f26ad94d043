// Runs zerbal-map on a small world in a temporary folder.
#pragma once

#include <QFile>
#include <QStringList>
#include <sstream>

#include <gtest/gtest.h>

#include "support/small_world.h"
#include "support/temp_folder.h"
#include "zerbal-map/run.h"

namespace zerbal::test {

class CommandFixture : public testing::Test {
 protected:
  CommandFixture() { world.Write(folder.Path()); }

  QString File(const char* name) const { return QFile::decodeName((folder / name).c_str()); }
  int Run(QStringList words) {
    words << "--data" << QFile::decodeName(folder.Path().c_str());
    output.str("");
    errors.str("");
    return mapcommand::Run(words, output, errors, false);
  }

  TempFolder folder;
  SmallWorld world;
  std::ostringstream output;
  std::ostringstream errors;
};

}  // namespace zerbal::test
