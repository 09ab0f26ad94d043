// The layout of a table to be written, and its definition in bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "jet/format/page_layout.h"
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
  // Usage maps of the pages of long values: all, and those with room. Memo and OLE only.
  RecordPointer ownedLongMap{};
  RecordPointer freeLongMap{};

  bool IsLong() const { return IsLongValueType(info.type); }
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

/// The parts of a definition that depend on the rows.
struct TableCounts {
  std::uint32_t rows = 0;
  std::uint32_t lastAutonumber = 0;
  std::vector<std::uint32_t> distinctKeys;  ///< per index
};

struct TableLayout {
  std::string name;
  std::uint32_t page = 0;  ///< of the definition
  bool system = false;     ///< one of the four system tables
  std::vector<ColumnLayout> columns;
  std::vector<std::size_t> recordOrder;  ///< the order of the columns in the definition
  std::vector<IndexLayout> indexes;
  std::uint16_t fixedSize = 0;  ///< bytes of the fixed part of a row
  std::uint16_t variableCount = 0;
  RecordPointer ownedMap{};
  RecordPointer freeMap{};

  std::size_t MapCount() const;  ///< the number of usage maps of the table
};

/// Lays out a user table, without its pages and maps. Throws Refusal when the description is invalid: names
/// (characters, length, duplicates), number and length of columns, indexes without or with unsuitable
/// columns.
TableLayout LayOutTable(const TableSpec& table);

/// Whether two names of tables, columns or indexes are the same, ignoring letter case and trailing blanks.
bool IsSameName(const std::string& a, const std::string& b);

/// Sets numbers, offsets, lengths and flags of the columns, in order. They are valid.
void PlaceColumns(TableLayout& layout);

/// The definition in bytes, not yet cut into pages; the head of its first page is zero.
std::vector<std::uint8_t> DefinitionBytes(const TableLayout& layout, const TableCounts& counts);

}  // namespace zerbal::jet
