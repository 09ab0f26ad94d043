// Writes a complete database file in the 2000 format. The same input gives the same bytes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "jet/schema.h"
#include "jet/value.h"

namespace zerbal::jet {

/// `ColumnInfo::fixed` is ignored: the type determines it. Memo, OLE and numeric columns cannot be indexed.
struct TableSpec {
  std::string name;
  std::vector<ColumnInfo> columns;
  std::vector<IndexInfo> indexes;
};

/// Writes one database: for each table BeginTable, rows, EndTable; then Finish. Rows are written at once;
/// only index keys are kept in memory. The database is written to a temporary file in the same folder. Finish
/// puts it in the place of `file`; without Finish the destructor removes it. Every failure (disk, a duplicate
/// in a unique index, a value that does not fit, calls out of order) is an EngineError.
class DatabaseWriter {
 public:
  explicit DatabaseWriter(const std::filesystem::path& file);
  ~DatabaseWriter();
  DatabaseWriter(const DatabaseWriter&) = delete;
  DatabaseWriter& operator=(const DatabaseWriter&) = delete;

  void BeginTable(const TableSpec& table);
  /// Adds a row: one value per column, in order. A refused row does not change the table.
  void AddRow(std::span<const Value> row);
  /// The same for tables of exactly two Long columns, without the cost of general values.
  void AddPair(std::int32_t first, std::int32_t second);
  /// Ends the table and writes its indexes. The error for a duplicate in a unique index states both rows'
  /// numbers.
  void EndTable();

  /// Writes catalog and header, flushes to disk and replaces `file`.
  void Finish();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace zerbal::jet
