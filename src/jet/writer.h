// Writes a whole database file (the 2000 format) from nothing. The same input gives the same bytes.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "jet/schema.h"

namespace zerbal::jet {

struct Null {
  bool operator==(const Null&) const = default;
};

/// A value for one column. Texts are UTF-8. What does not fit its column (range, length, type) is refused
/// with an EngineError that names table, column and row. What fits which column:
/// Boolean: bool, never Null. Byte, Integer, Long: whole numbers. Single, Double, DateTime (days): real
/// numbers, rounded to the type, and whole ones that are exact in it. Currency: either, as an amount, rounded
/// to four decimals. Numeric: whole numbers, or a text like "-12.50". Text, Memo: texts. Binary, OLE: bytes.
/// GUID: its 16 bytes as they are stored.
using Value = std::variant<Null, bool, std::int32_t, std::int64_t, float, double, std::string,
                           std::vector<std::uint8_t>>;

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
