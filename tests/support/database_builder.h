// Small databases for tests, in a few lines:
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
// Texts are compressed where they can be, as the desktop program does it; PlainText() and PlainMemo() are
// not. Indexes: Index (not unique), Unique, Primary; more columns are more names, "-" behind a name is
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

/// A cell of a row; made of whatever is written there. (A bare const char* would become a bool in a Value.)
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

  /// For a test that changes a table before it is written: all throw when there is no such thing.
  int ColumnIndex(std::string_view column) const;
  /// The first row whose `column` holds `value`.
  Row& RowWhere(std::string_view column, const Cell& value);
  Cell& CellOf(Row& row, std::string_view column) const;
  void RemoveRow(std::string_view column, const Cell& value);
};

/// A map table: columns Lon and Lat, no index.
struct Point {
  std::int32_t lon = 0;  ///< millionths of a degree in the map's own frame
  std::int32_t lat = 0;
};
inline constexpr Point kPenUp = {-1000000, 0};
Table MapTable(std::string name, const std::vector<Point>& points);
/// A point from degrees.
Point At(double lon, double lat);

/// Writes a database, over one that may be there; folders are created. Throws EngineError.
void WriteDatabase(const std::filesystem::path& file, const std::vector<Table>& tables);

/// One table as WriteDatabase writes it.
void WriteTable(jet::DatabaseWriter& writer, const Table& table);

}  // namespace zerbal::test
