// Table definitions: a head, a counter record per physical index, a record and then a name per column, a
// record per physical index (a tree of pages), a record and then a name per logical index.
#pragma once

#include <cstddef>
#include <cstdint>

#include "jet/format/page.h"

namespace zerbal::jet {

// Every page of a definition. The head of the first page belongs to the definition, that of the others not.
inline constexpr std::size_t kNextDefinitionPageAt = 4;  ///< 32 bits; 0 = this is the last
inline constexpr std::size_t kDefinitionPageHead = 8;    ///< bytes
inline constexpr std::size_t kDefinitionLengthAt = 8;    ///< 32 bits: of the whole definition

/// Sizes of records, and offsets in them.
struct TableDefinitionLayout {
  struct Head {
    std::size_t size, rows, maxColumns, variableColumns, columns, logicalIndexes, physicalIndexes, ownedPages;
  };
  struct Column {
    std::size_t size, type, number, variableIndex, sortOrder, flags, fixedOffset, length;
  };
  struct PhysicalIndex {
    std::size_t size, parts, root, flags;
  };
  struct LogicalIndex {
    std::size_t size, physical, kind;
  };
  Head head;
  std::size_t counterSize;
  Column column;
  PhysicalIndex physical;
  LogicalIndex logical;
};

inline constexpr TableDefinitionLayout kJet3Definition = {{0x2B, 0x0C, 0x15, 0x17, 0x19, 0x1B, 0x1F, 0x23},
                                                          8,
                                                          {18, 0x00, 0x01, 0x03, 0x09, 0x0D, 0x0E, 0x10},
                                                          {39, 0x00, 0x22, 0x26},
                                                          {20, 0x04, 0x13}};
inline constexpr TableDefinitionLayout kJet4Definition = {{0x3F, 0x10, 0x29, 0x2B, 0x2D, 0x2F, 0x33, 0x37},
                                                          12,
                                                          {25, 0x00, 0x05, 0x07, 0x0B, 0x0F, 0x15, 0x17},
                                                          {52, 0x04, 0x26, 0x2E},
                                                          {28, 0x08, 0x17}};

// Fields of the 2000 format only.
inline constexpr std::size_t kColumnPrecisionAt = 0x0B;  ///< 8 bits; of numerics, which have no sort order
inline constexpr std::size_t kColumnScaleAt = 0x0C;      ///< 8 bits; of numerics
inline constexpr std::size_t kColumnSortVersionAt = 0x0E;
inline constexpr std::size_t kColumnTextFlagsAt = 0x10;
inline constexpr std::uint8_t kColumnCompressed = 0x01;  ///< among the text flags

// Fields of the 2000 format that are written and never read.
inline constexpr std::size_t kDefinitionMarkAt = 0x0C, kLastAutonumberAt = 0x14, kAutonumberStepAt = 0x18,
                             kTableTypeAt = 0x28, kFreePagesAt = 0x3B;
inline constexpr std::size_t kCounterDistinctKeysAt = 4;
inline constexpr std::size_t kColumnMarkAt = 0x01, kDisplayPositionAt = 0x09;
inline constexpr std::size_t kPhysicalMarkAt = 0x00, kIndexPagesAt = 0x22;
inline constexpr std::size_t kLogicalMarkAt = 0x00, kLogicalNumberAt = 0x04, kOtherIndexAt = 0x0D,
                             kUpdateRuleAt = 0x15, kDeleteRuleAt = 0x16;

// Column flags.
inline constexpr std::uint8_t kColumnFixed = 0x01;
inline constexpr std::uint8_t kColumnAlways = 0x02;  ///< every column has it
inline constexpr std::uint8_t kColumnAutonumber = 0x04;
inline constexpr std::uint8_t kColumnSystem = 0x10;  ///< in the engine's own tables
inline constexpr std::uint8_t kColumnUserId = 0x20;

// The columns of a physical index: for each the number in 16 bits and an order in 8 bits.
inline constexpr std::size_t kMaxIndexColumns = 10;
inline constexpr std::size_t kIndexColumnSize = 3;     ///< bytes
inline constexpr std::uint16_t kNoColumn = 0xFFFF;     ///< stands for the missing ones, and ends a definition
inline constexpr std::uint8_t kIndexAscending = 0x01;  ///< among the bits of the order

// Index flags.
inline constexpr std::uint8_t kIndexUnique = 0x01;
inline constexpr std::uint8_t kIndexIgnoreNulls = 0x02;
inline constexpr std::uint8_t kIndexRequired = 0x08;
inline constexpr std::uint8_t kIndexAlways = 0x80;  ///< every index of a written table has it

enum class IndexKind : std::uint8_t { kOrdinary = 0, kPrimaryKey = 1, kRelationship = 2 };

// What a table may have at most in the engine that defined the format.
inline constexpr std::size_t kMaxColumns = 255;
inline constexpr std::size_t kMaxIndexes = 32;
inline constexpr int kMaxPrecision = 28;  ///< digits of a numeric

}  // namespace zerbal::jet
