// Writes a whole database file (the 2000 format) from nothing. The same input gives the same bytes.
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

/// Whether a column is stored in the fixed part of a row follows from its type; `ColumnInfo::fixed` is not
/// looked at. Memo, OLE and numeric columns cannot be indexed.
struct TableSpec {
  std::string name;
  std::vector<ColumnInfo> columns;
  std::vector<IndexInfo> indexes;
};

/// Builds one database: for each table BeginTable, rows, EndTable; then Finish. Rows are written as they come
/// and only index keys are kept in memory. Nothing is at `file` until Finish has succeeded: the work goes on
/// in a temporary file beside it, which is removed when the writer is destroyed unfinished. Every failure
/// (disk, a duplicate in a unique index, a value that does not fit) is an EngineError.
class DatabaseWriter {
 public:
  explicit DatabaseWriter(const std::filesystem::path& file);
  ~DatabaseWriter();
  DatabaseWriter(const DatabaseWriter&) = delete;
  DatabaseWriter& operator=(const DatabaseWriter&) = delete;

  void BeginTable(const TableSpec& table);
  /// One row, a value for each column of the table in order. A row that is refused leaves the table as it
  /// was.
  void AddRow(std::span<const Value> row);
  /// The fast way for tables of exactly two Long columns.
  void AddPair(std::int32_t first, std::int32_t second);
  /// Ends the table: builds its indexes; a duplicate in a unique index is reported with the two rows'
  /// numbers.
  void EndTable();

  /// Writes catalog and header, flushes to disk and puts the file in its place.
  void Finish();

 private:
  struct State;
  std::unique_ptr<State> state_;
};

}  // namespace zerbal::jet
