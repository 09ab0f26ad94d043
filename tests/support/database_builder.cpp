#include "support/database_builder.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace zerbal::test {

using jet::ColumnInfo;
using jet::ColumnType;

ColumnInfo Column(std::string name, ColumnType type, int length) {
  ColumnInfo column;
  column.name = std::move(name);
  column.type = type;
  column.length = length;
  return column;
}

namespace {

ColumnInfo Compressed(ColumnInfo column) {
  column.compressed = true;
  return column;
}

}  // namespace

ColumnInfo Boolean(std::string name) {
  return Column(std::move(name), ColumnType::kBoolean);
}
ColumnInfo Byte(std::string name) {
  return Column(std::move(name), ColumnType::kByte);
}
ColumnInfo Integer(std::string name) {
  return Column(std::move(name), ColumnType::kInteger);
}
ColumnInfo Long(std::string name) {
  return Column(std::move(name), ColumnType::kLong);
}
ColumnInfo Currency(std::string name) {
  return Column(std::move(name), ColumnType::kCurrency);
}
ColumnInfo Single(std::string name) {
  return Column(std::move(name), ColumnType::kSingle);
}
ColumnInfo Double(std::string name) {
  return Column(std::move(name), ColumnType::kDouble);
}
ColumnInfo DateTime(std::string name) {
  return Column(std::move(name), ColumnType::kDateTime);
}
ColumnInfo Binary(std::string name, int bytes) {
  return Column(std::move(name), ColumnType::kBinary, bytes);
}
ColumnInfo Text(std::string name, int characters) {
  return Compressed(PlainText(std::move(name), characters));
}
ColumnInfo PlainText(std::string name, int characters) {
  return Column(std::move(name), ColumnType::kText, characters);
}
ColumnInfo Ole(std::string name) {
  return Column(std::move(name), ColumnType::kOle);
}
ColumnInfo Memo(std::string name) {
  return Compressed(PlainMemo(std::move(name)));
}
ColumnInfo PlainMemo(std::string name) {
  return Column(std::move(name), ColumnType::kMemo);
}
ColumnInfo Guid(std::string name) {
  return Column(std::move(name), ColumnType::kGuid);
}
ColumnInfo Numeric(std::string name, int precision, int scale) {
  ColumnInfo column = Column(std::move(name), ColumnType::kNumeric);
  column.precision = precision;
  column.scale = scale;
  return column;
}

jet::IndexInfo IndexOn(std::string name, std::initializer_list<std::string_view> columns) {
  jet::IndexInfo index;
  index.name = std::move(name);
  for (std::string_view column : columns) {
    const bool descending = column.ends_with('-');
    column.remove_suffix(descending ? 1 : 0);
    index.columns.push_back({std::string(column), !descending});
  }
  return index;
}

int Table::ColumnIndex(std::string_view column) const {
  const auto found = std::ranges::find(columns, column, &ColumnInfo::name);
  if (found == columns.end())
    throw std::logic_error("table " + name + " has no column " + std::string(column));
  return static_cast<int>(found - columns.begin());
}

Cell& Table::CellOf(Row& row, std::string_view column) const {
  return row.at(static_cast<std::size_t>(ColumnIndex(column)));
}

Row& Table::RowWhere(std::string_view column, const Cell& value) {
  for (Row& row : rows) {
    if (static_cast<const jet::Value&>(CellOf(row, column)) == static_cast<const jet::Value&>(value))
      return row;
  }
  throw std::logic_error("table " + name + " has no such row");
}

void Table::RemoveRow(std::string_view column, const Cell& value) {
  const Row* row = &RowWhere(column, value);
  rows.erase(rows.begin() + (row - rows.data()));
}

Table MapTable(std::string name, const std::vector<Point>& points) {
  Table table{std::move(name), {Long("Lon"), Long("Lat")}, {}, {}};
  for (const Point& point : points)
    table.rows.push_back({point.lon, point.lat});
  return table;
}

Point At(double lon, double lat) {
  return {static_cast<std::int32_t>(std::lround(lon * 1e6)),
          static_cast<std::int32_t>(std::lround(lat * 1e6))};
}

void WriteTable(jet::DatabaseWriter& writer, const Table& table) {
  writer.BeginTable({table.name, table.columns, table.indexes});
  for (const Row& row : table.rows) {
    const std::vector<jet::Value> values(row.begin(), row.end());
    writer.AddRow(values);
  }
  writer.EndTable();
}

void WriteDatabase(const std::filesystem::path& file, const std::vector<Table>& tables) {
  if (file.has_parent_path())
    std::filesystem::create_directories(file.parent_path());
  jet::DatabaseWriter writer(file);
  for (const Table& table : tables)
    WriteTable(writer, table);
  writer.Finish();
}

}  // namespace zerbal::test
