// Small files for the tests of zerbal-pack.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "jet/writer.h"
#include "support/temp_folder.h"

namespace zerbal::pack::test {

inline const std::filesystem::path kPackFolder = std::filesystem::path(ZERBAL_SOURCE_DIR) / "pack";

/// The contents of every file below a folder, by relative name.
inline std::map<std::string, std::string> FolderContent(const std::filesystem::path& folder) {
  std::map<std::string, std::string> content;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file())
      content[std::filesystem::relative(entry.path(), folder).generic_string()] =
          zerbal::test::ReadBytes(entry.path());
  }
  return content;
}

inline jet::ColumnInfo NumberColumn(std::string name, jet::ColumnType type, int length) {
  jet::ColumnInfo column;
  column.name = std::move(name);
  column.type = type;
  column.length = length;
  column.fixed = true;
  return column;
}

inline jet::ColumnInfo TextColumn(std::string name, int length) {
  jet::ColumnInfo column;
  column.name = std::move(name);
  column.type = jet::ColumnType::kText;
  column.length = length;
  column.compressed = true;
  return column;
}

inline jet::TableSpec PointTable(std::string name) {
  return {std::move(name),
          {NumberColumn("Lon", jet::ColumnType::kLong, 4), NumberColumn("Lat", jet::ColumnType::kLong, 4)},
          {}};
}

/// A database of point tables, each with one short line.
inline void WritePoints(const std::filesystem::path& file, const std::vector<std::string>& tables) {
  jet::DatabaseWriter writer(file);
  for (const std::string& table : tables) {
    writer.BeginTable(PointTable(table));
    writer.AddPair(170'000'000, 51'000'000);
    writer.AddPair(171'000'000, 52'000'000);
    writer.AddPair(-1'000'000, 0);
    writer.EndTable();
  }
  writer.Finish();
}

}  // namespace zerbal::pack::test
