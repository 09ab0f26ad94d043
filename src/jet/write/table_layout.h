// A table to be written: where its columns go in a row, and its definition in bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "jet/format/page.h"
#include "jet/format/table_definition_layout.h"
#include "jet/schema.h"
#include "jet/writer.h"

namespace zerbal::jet {

struct ColumnLayout {
  ColumnInfo info;  ///< `fixed` as it is stored
  std::uint16_t number = 0;
  std::uint16_t fixedOffset = 0;
  std::uint16_t variableIndex = 0;  ///< of a fixed column: the number of variable columns before it
  std::uint16_t storedLength = 0;   ///< bytes
  std::uint8_t flags = 0;
  std::uint16_t displayPosition = 0;
  // Where the maps of the pages of long values are; memo and OLE only.
  RecordPointer ownedLongMap{};
  RecordPointer freeLongMap{};

  bool IsLong() const { return info.type == ColumnType::kMemo || info.type == ColumnType::kOle; }
};

struct IndexLayout {
  struct Part {
    std::uint16_t column = 0;
    bool ascending = true;
  };
  std::string name;
  std::vector<Part> parts;
  std::uint8_t flags = 0;
  IndexKind kind = IndexKind::kOrdinary;
  std::uint32_t rootPage = 0;
  RecordPointer map{};  ///< of its pages

  bool Has(std::uint8_t flag) const { return (flags & flag) != 0; }
};

/// What a definition says that is not known before the last row.
struct TableCounts {
  std::uint32_t rows = 0;
  std::uint32_t lastAutonumber = 0;
  std::vector<std::uint32_t> distinctKeys;  ///< one an index
};

struct TableLayout {
  std::string name;
  std::uint32_t page = 0;  ///< of the definition
  bool system = false;     ///< one of the engine's own four tables
  std::vector<ColumnLayout> columns;
  std::vector<std::size_t> recordOrder;  ///< in which the definition lists the columns
  std::vector<IndexLayout> indexes;
  std::uint16_t fixedSize = 0;  ///< bytes of the fixed part of a row
  std::uint16_t variableCount = 0;
  RecordPointer ownedMap{};
  RecordPointer freeMap{};

  std::size_t MapCount() const;  ///< how many usage maps the table has
};

/// Lays out a user's table; pages and maps are still to be given. A Refusal when it is no proper table: bad
/// or double names, too many or too long columns, an index on nothing or on what cannot be indexed.
TableLayout LayOutTable(const TableSpec& table);

/// Whether two names of tables, columns or indexes are the same: letter case does not matter.
bool IsSameName(const std::string& a, const std::string& b);

/// The lay-out of columns that need no check, in order: numbers, offsets, lengths, flags.
void PlaceColumns(TableLayout& layout);

/// The definition in bytes, not yet cut into pages; the head of its first page is zero.
std::vector<std::uint8_t> DefinitionBytes(const TableLayout& layout, const TableCounts& counts);

}  // namespace zerbal::jet
