// Reading the definition of a table: columns, indexes, where the rows are.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "jet/read/data_page.h"
#include "jet/read/file_header.h"
#include "jet/read/file_pages.h"
#include "jet/schema.h"

namespace zerbal::jet {

/// Where a column's values are in a row. `ColumnInfo::fixed` tells which of the two places applies.
struct ColumnPlace {
  std::uint16_t number = 0;         ///< its bit in the null mask; numbers of deleted columns are not reused
  std::uint16_t fixedOffset = 0;    ///< from the first byte of the fixed part
  std::uint16_t fixedLength = 0;    ///< bytes
  std::uint16_t variableIndex = 0;  ///< entry of the table of offsets
  SortOrder sortOrder;              ///< of texts, for index keys
};

/// A tree of index pages.
struct PhysicalIndex {
  struct Part {
    int column = 0;  ///< position in TableDefinition::columns
    bool ascending = true;
  };
  std::vector<Part> parts;
  std::uint32_t rootPage = 0;
  std::uint8_t flags = 0;
};

struct TableDefinition {
  std::uint32_t page = 0;  ///< of the definition; data and index pages name it as their owner
  std::string name;
  std::vector<ColumnInfo> columns;  ///< in the order of the column numbers
  std::vector<ColumnPlace> places;  ///< of the same columns
  bool hasVariableColumns = false;  ///< deleted ones included; determines the layout of rows
  std::uint32_t notedRows = 0;      ///< as stored; wrong after a crash of the writing program
  RecordPointer ownedPages;
  std::vector<PhysicalIndex> trees;
  std::vector<IndexInfo> indexes;   ///< several may share one tree
  std::vector<std::size_t> treeOf;  ///< for each index its tree
};

/// Reads the definition that begins on `page`. Throws Damage.
TableDefinition ReadTableDefinition(const FilePages& pages, std::uint32_t page, std::string name);

}  // namespace zerbal::jet
