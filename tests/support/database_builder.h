// Writes small databases for tests:
//
//   using namespace zerbal::test;
//   TempFolder folder;
//   WriteDatabase(folder / "qavdata.mdb",
//                 {Table{"dest",
//                        {Text("AP", 4), Single("AP_Lon"), Long("AP_Elev"), Memo("Remark")},
//                        {Index("aprt", "AP"), Unique("elev", "AP_Elev-")},
//                        {{"OSL", 191.1f, 681, "a remark"},
//                         {"AMS", 184.8f, -11, Null()}}}});
//
// Columns: Boolean Byte Integer Long Currency Single Double DateTime Binary Text Ole Memo Guid Numeric.
// Text() and Memo() columns compress their texts where possible; PlainText() and PlainMemo() do not.
// Indexes: Index (not unique), Unique, Primary. Each takes several columns; "-" after a column's name means
// descending. Cells: numbers, texts (const char* or std::string, UTF-8), true/false, Null(), bytes.
#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "jet/schema.h"
#include "jet/writer.h"
#include "support/temp_folder.h"

namespace zerbal::test {

using jet::Null;

/// A cell of a row, converted from any value above. (A const char* would become a bool in a jet::Value.)
struct Cell : jet::Value {
  template <class T>
  requires(!std::is_convertible_v<T, std::string_view>) Cell(T value) : jet::Value(std::move(value)) {}
  Cell(const char* text) : jet::Value(std::string(text)) {}
  Cell(std::string text) : jet::Value(std::move(text)) {}
};
using Row = std::vector<Cell>;

jet::ColumnInfo Column(std::string name, jet::ColumnType type, int length = 0);
jet::ColumnInfo Boolean(std::string name);
jet::ColumnInfo Byte(std::string name);
jet::ColumnInfo Integer(std::string name);
jet::ColumnInfo Long(std::string name);
jet::ColumnInfo Currency(std::string name);
jet::ColumnInfo Single(std::string name);
jet::ColumnInfo Double(std::string name);
jet::ColumnInfo DateTime(std::string name);
jet::ColumnInfo Binary(std::string name, int bytes = 255);
jet::ColumnInfo Text(std::string name, int characters = 255);
jet::ColumnInfo PlainText(std::string name, int characters = 255);
jet::ColumnInfo Ole(std::string name);
jet::ColumnInfo Memo(std::string name);
jet::ColumnInfo PlainMemo(std::string name);
jet::ColumnInfo Guid(std::string name);
jet::ColumnInfo Numeric(std::string name, int precision, int scale);

jet::IndexInfo IndexOn(std::string name, std::initializer_list<std::string_view> columns);
template <class... Columns>
jet::IndexInfo Index(std::string name, Columns... columns) {
  return IndexOn(std::move(name), {std::string_view(columns)...});
}
template <class... Columns>
jet::IndexInfo Unique(std::string name, Columns... columns) {
  jet::IndexInfo index = IndexOn(std::move(name), {std::string_view(columns)...});
  index.unique = true;
  return index;
}
template <class... Columns>
jet::IndexInfo Primary(std::string name, Columns... columns) {
  jet::IndexInfo index = IndexOn(std::move(name), {std::string_view(columns)...});
  index.primary = true;
  return index;
}

struct Table {
  std::string name;
  std::vector<jet::ColumnInfo> columns;
  std::vector<jet::IndexInfo> indexes;
  std::vector<Row> rows;

  // All throw std::logic_error when the column or row does not exist.
  int ColumnIndex(std::string_view column) const;
  /// The first row whose `column` holds `value`.
  Row& RowWhere(std::string_view column, const Cell& value);
  Cell& CellOf(Row& row, std::string_view column) const;
  void RemoveRow(std::string_view column, const Cell& value);
};

/// A row of a map table.
struct Point {
  std::int32_t lon = 0;  ///< map longitude in millionths of a degree
  std::int32_t lat = 0;  ///< map latitude in millionths of a degree
};
inline constexpr Point kPenUp = {-1000000, 0};
/// A map table: columns Lon and Lat, no index.
Table MapTable(std::string name, const std::vector<Point>& points);
/// The point at a map longitude and latitude in degrees.
Point At(double lon, double lat);

/// Writes a database. Replaces an existing file and creates missing folders. Throws EngineError.
void WriteDatabase(const std::filesystem::path& file, const std::vector<Table>& tables);

/// Writes one table to a database.
void WriteTable(jet::DatabaseWriter& writer, const Table& table);

}  // namespace zerbal::test
