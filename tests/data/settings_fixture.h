// A settings file in a temporary folder, and one that cannot be written.
#pragma once

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "data/error.h"
#include "settings/ini_file.h"
#include "support/database_builder.h"
#include "support/recorded_boxes.h"
#include "support/temp_folder.h"

namespace zerbal::data {

class SettingsTest : public testing::Test {
 protected:
  void Write(std::string_view bytes) { test::WriteBytes(file_, bytes); }
  std::string Bytes() { return test::ReadBytes(file_); }
  void WriteTable(const test::Table& table) { test::WriteDatabase(zbldata_, {table}); }

  test::TempFolder folder_;
  std::filesystem::path zbldata_ = folder_ / "zbldata.mdb";
  std::filesystem::path file_ = folder_ / "zerbal.ini";
  test::RecordedBoxes boxes_;
  settings::IniFile ini_{file_, boxes_};
  settings::IniFile unwritable_{folder_ / "missing" / "zerbal.ini", boxes_};
};

/// The text of the LoadError that `load` throws; "none" when it throws none.
template <typename Load>
std::string WordsOf(const Load& load) {
  try {
    load();
  } catch (const LoadError& error) {
    return error.what();
  }
  return "none";
}

}  // namespace zerbal::data
