// Table definitions: a head, a counter record per physical index, a record and then a name per column, a
// record per physical index (a tree of pages), a record and then a name per logical index.
#pragma once

#include <cstddef>
#include <cstdint>

#include "jet/format/page_layout.h"

namespace zerbal::jet {

// Every page of a definition. The head of the first page belongs to the definition, that of the others not.
inline constexpr std::size_t kNextDefinitionPageAt = 4;  ///< 32 bits; 0 = this is the last
inline constexpr std::size_t kDefinitionPageHead = 8;    ///< bytes
inline constexpr std::size_t kDefinitionLengthAt = 8;    ///< 32 bits: of the whole definition

/// Sizes of records, and offsets of their fields, in bytes.
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

inline constexpr TableDefinitionLayout kJet3Definition = {
    .head = {.size = 0x2B,
             .rows = 0x0C,
             .maxColumns = 0x15,
             .variableColumns = 0x17,
             .columns = 0x19,
             .logicalIndexes = 0x1B,
             .physicalIndexes = 0x1F,
             .ownedPages = 0x23},
    .counterSize = 8,
    .column = {.size = 18,
               .type = 0x00,
               .number = 0x01,
               .variableIndex = 0x03,
               .sortOrder = 0x09,
               .flags = 0x0D,
               .fixedOffset = 0x0E,
               .length = 0x10},
    .physical = {.size = 39, .parts = 0x00, .root = 0x22, .flags = 0x26},
    .logical = {.size = 20, .physical = 0x04, .kind = 0x13}};
inline constexpr TableDefinitionLayout kJet4Definition = {
    .head = {.size = 0x3F,
             .rows = 0x10,
             .maxColumns = 0x29,
             .variableColumns = 0x2B,
             .columns = 0x2D,
             .logicalIndexes = 0x2F,
             .physicalIndexes = 0x33,
             .ownedPages = 0x37},
    .counterSize = 12,
    .column = {.size = 25,
               .type = 0x00,
               .number = 0x05,
               .variableIndex = 0x07,
               .sortOrder = 0x0B,
               .flags = 0x0F,
               .fixedOffset = 0x15,
               .length = 0x17},
    .physical = {.size = 52, .parts = 0x04, .root = 0x26, .flags = 0x2E},
    .logical = {.size = 28, .physical = 0x08, .kind = 0x17}};

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
