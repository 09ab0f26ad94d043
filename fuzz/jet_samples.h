// Contents of small databases with every kind of structure, for the fuzz targets of the reader.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jet/format/key.h"
#include "support/jet_file.h"

namespace zerbal::fuzz {

using namespace zerbal::jet;
using namespace zerbal::jet::test;

/// All scalar types, Nulls, a moved row and a deleted row.
inline void AddScalars(JetFile& file) {
  std::vector<TestColumn> columns = {
      {"Flag", ColumnType::kBoolean, 0, true, 0, 1}, {"B", ColumnType::kByte, 1, true, 0, 1},
      {"I", ColumnType::kInteger, 2, true, 1, 2},    {"L", ColumnType::kLong, 3, true, 3, 4},
      {"C", ColumnType::kCurrency, 4, true, 7, 8},   {"S", ColumnType::kSingle, 5, true, 15, 4},
      {"D", ColumnType::kDouble, 6, true, 19, 8},    {"T", ColumnType::kDateTime, 7, true, 27, 8},
      {"G", ColumnType::kGuid, 8, true, 35, 16},     {"X", ColumnType::kBinary, 9, false, 0, 10},
      {"N", ColumnType::kText, 10, false, 1, 100}};
  if (!file.IsJet3())
    columns.push_back({"Q", ColumnType::kNumeric, 11, true, 51, 17, 2});
  TestTable table(file, "Scalars", columns);
  std::vector<Cell> cells = {Bytes{},
                             Le(7, 1),
                             Le(300, 2),
                             Le(70000, 4),
                             Le(12345, 8),
                             Le(0x3FC00000, 4),
                             Le(0x4004000000000000, 8),
                             Le(0x40E1A5B1A0000000, 8),
                             Bytes(16, 0xA5),
                             Bytes{1, 2, 3},
                             file.Text("Name 12")};
  if (!file.IsJet3())
    cells.push_back(Bytes{0x80} + Le(0, 12) + Le(1250, 4));
  table.Add(cells);
  table.Add(std::vector<Cell>(columns.size(), kNull));
  const RecordPointer target = table.AddBytes(table.RowBytes(cells), 0x8000);
  table.AddBytes(Le(target.ToU32(), 4), 0x4000);
  table.AddBytes({}, 0xC000);
  cells[10] = file.IsJet3() ? Raw("Z\xFCrich \x8D") : Compressed("Z\xFCrich") + Bytes{0, 0x42, 0x30, 0, 0x41};
  table.Add(cells);
  table.Finish();
}

/// Memos inside the row, in a row of another page, and in a chain of rows.
inline void AddMemos(JetFile& file) {
  TestTable table(file, "Memos",
                  {{"M", ColumnType::kMemo, 0, false, 0, 0}, {"O", ColumnType::kOle, 1, false, 1, 0}});
  const std::uint32_t page = file.AddDataPage(0x4C41564C);
  const auto descriptor = [](std::size_t size, std::uint32_t kind, std::uint32_t pointer) {
    return Le(size | kind << 30, 4) + Le(pointer, 4) + Le(0, 4);
  };
  const Bytes text = file.Text("a memo of some length");
  const RecordPointer whole = file.AddRow(page, text);
  const RecordPointer last = file.AddRow(page, Le(0, 4) + file.Text("memo"));
  const RecordPointer first = file.AddRow(page, Le(last.ToU32(), 4) + file.Text("long "));
  table.Add({descriptor(text.size(), 2, 0) + text, descriptor(3, 2, 0) + Bytes{9, 8, 7}});
  table.Add({descriptor(text.size(), 1, whole.ToU32()), descriptor(text.size(), 1, whole.ToU32())});
  table.Add({descriptor(file.Text("long memo").size(), 0, first.ToU32()), Bytes()});
  table.Finish();
}

inline Bytes TextKey(const JetFile& file, const std::string& text, bool ascending) {
  Bytes key;
  if (file.IsJet3())
    AppendTextKeyJet3(text, ascending, key);
  else
    AppendTextKeyJet4(std::u16string(text.begin(), text.end()), ascending, key);
  return key;
}

/// Texts and numbers in index trees of several levels, in both directions.
inline void AddIndexed(JetFile& file, std::uint32_t rows) {
  TestTable table(file, "Indexed",
                  {{"Id", ColumnType::kLong, 0, true, 0, 4}, {"Code", ColumnType::kText, 1, false, 0, 20}});
  std::vector<TestEntry> up, down, both;
  for (std::uint32_t i = 0; i < rows; ++i) {
    const std::string code = "Code" + std::to_string(i * 7 % rows);
    const RecordPointer row = table.Add({Le(i, 4), file.Text(code)});
    Bytes id, idDown;
    const Bytes stored = Le(i, 4);

    AppendFixedKey(ColumnType::kLong, Chars(stored), true, id);
    AppendFixedKey(ColumnType::kLong, Chars(stored), false, idDown);
    up.push_back({TextKey(file, code, true), row});
    down.push_back({idDown, row});
    both.push_back({TextKey(file, code, false) + id, row});
  }
  table.indexes.push_back({"Code", {{1, true}}, AddIndexTree(file, table.Page(), up, 4, true), 0x80});
  table.indexes.push_back({"Down", {{0, false}}, AddIndexTree(file, table.Page(), down, 12, false), 0x81, 1});
  table.indexes.push_back(
      {"Both", {{1, false}, {0, true}}, AddIndexTree(file, table.Page(), both, 8, true), 0x80});
  table.Finish();
}

inline void AddPairs(JetFile& file) {
  TestTable table(file, "Pairs",
                  {{"Lon", ColumnType::kLong, 0, true, 0, 4}, {"Lat", ColumnType::kLong, 1, true, 4, 4}});
  for (std::uint64_t i = 0; i < 20; ++i)
    table.Add({Le(i * 1000, 4), Le(i * 500, 4)});
  table.ownedPages = file.AddReferenceMap(table.DataPages());
  table.Finish();
}

}  // namespace zerbal::fuzz
