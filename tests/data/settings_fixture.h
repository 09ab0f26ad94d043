// A settings file in a folder of its own, and one that can never be written.
#pragma once

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "data/load_error.h"
#include "settings/ini_values.h"
#include "support/database_builder.h"
#include "support/recorded_boxes.h"
#include "support/temp_folder.h"

namespace zerbal::data {

class SettingsTest : public testing::Test {
 protected:
  void Write(std::string_view bytes) { test::WriteBytes(ini_.Path(), bytes); }
  std::string Bytes() { return test::ReadBytes(ini_.Path()); }
  void WriteTable(const test::Table& table) { test::WriteDatabase(zbldata_, {table}); }

  test::TempFolder folder_;
  std::filesystem::path zbldata_ = folder_ / "zbldata.mdb";
  test::RecordedBoxes boxes_;
  settings::IniValues values_{boxes_};
  settings::IniFile ini_{folder_ / "zerbal.ini", values_};
  settings::IniFile unwritable_{folder_ / "missing" / "zerbal.ini", values_};
};

/// The words of the LoadError that `load` throws; "none" when it throws none.
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
