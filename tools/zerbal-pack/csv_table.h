// Reading the rows of one table from a planner's CSV file.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "jet/writer.h"
#include "zerbal-pack/layout.h"
#include "zerbal-pack/problems.h"

namespace zerbal::pack {

struct CsvRow {
  std::size_t line = 0;
  std::vector<jet::Value> values;  ///< one per column of the layout; Null for invalid values

  /// The text in a column; "" when it holds none.
  std::string_view Text(std::size_t column) const;
};

struct CsvTable {
  const TableLayout* layout = nullptr;
  std::string file;                 ///< for messages
  std::vector<std::string> titles;  ///< of each column of the layout, as the file's header names it
  std::vector<CsvRow> rows;
  bool headerRead = false;  ///< false: nothing is known about the rows, `rows` is empty

  void Report(Problems& problems, const CsvRow& row, std::size_t column, std::string reason) const;
};

/// Reads `file` and reports every fault that concerns this file alone: form, header, missing and superfluous
/// columns, values that do not fit, repeated keys. The caller checks what depends on other tables. Rows of
/// valid form are kept even when a value is invalid, so that others can refer to them.
CsvTable ReadCsvTable(const std::filesystem::path& file, const TableLayout& layout, Problems& problems);

/// The same from a text in memory.
CsvTable ParseCsvTable(std::string_view text, std::string fileName, const TableLayout& layout,
                       Problems& problems);

}  // namespace zerbal::pack
