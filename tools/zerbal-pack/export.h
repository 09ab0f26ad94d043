// Writes the tables of a database as CSV files.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>

#include "jet/recordset.h"

namespace zerbal::pack {

struct ExportOptions {
  std::filesystem::path file;
  std::filesystem::path folder;  ///< created when it is missing
  std::string table;             ///< only this one; empty for all. Letter case does not matter here and below
  std::string index;             ///< rows in its order; empty for stored order
  bool schema = false;           ///< also schema.csv: columns, types and indexes
};

/// Writes `folder`/TABLE.csv for every user table. A file is complete or does not exist. A damaged table is
/// reported on `err`, and the others are written; the result is then false, as when there is no such table or
/// index. With an index and no table, the tables that lack the index are written in stored order; at least
/// one must have it. Throws jet::EngineError when the database cannot be opened and filesystem_error when a
/// file cannot be written.
bool ExportTables(const ExportOptions& options, std::ostream& err);

/// Appends one value: nothing for Null, texts in quotes, numbers in their shortest form, dates as
/// 2024-12-31 23:59:59, yes/no as 1 or 0, bytes as 0x and hexadecimal digits.
void AppendCsvValue(const jet::Field& field, std::string& out);

/// The name of a table's file: characters with a meaning for file systems or shells become "_".
std::string CsvFileName(const std::string& table);

}  // namespace zerbal::pack
