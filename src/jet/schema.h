// Columns and indexes of a table, read or written.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zerbal::jet {

/// Column types; the values are the type codes in the file.
enum class ColumnType : std::uint8_t {
  kBoolean = 0x01,
  kByte = 0x02,
  kInteger = 0x03,   ///< 16 bits
  kLong = 0x04,      ///< 32 bits
  kCurrency = 0x05,  ///< 64 bits, in units of 1/kCurrencyUnit
  kSingle = 0x06,
  kDouble = 0x07,
  kDateTime = 0x08,  ///< days since 1899-12-30
  kBinary = 0x09,
  kText = 0x0A,
  kOle = 0x0B,
  kMemo = 0x0C,
  kGuid = 0x0F,
  kNumeric = 0x10,
};

/// The stored size of a value in bytes; 0 for text, binary, memo and OLE, which vary. A boolean, which is
/// stored in the null mask, has size 1.
constexpr int SizeOfType(ColumnType type) {
  switch (type) {
    case ColumnType::kBoolean:
    case ColumnType::kByte:
      return 1;
    case ColumnType::kInteger:
      return 2;
    case ColumnType::kLong:
    case ColumnType::kSingle:
      return 4;
    case ColumnType::kCurrency:
    case ColumnType::kDouble:
    case ColumnType::kDateTime:
      return 8;
    case ColumnType::kGuid:
      return 16;
    case ColumnType::kNumeric:
      return 17;
    default:
      return 0;
  }
}

/// Whether values of the type are texts.
constexpr bool IsTextType(ColumnType type) {
  return type == ColumnType::kText || type == ColumnType::kMemo;
}
/// Whether values of the type are stored apart from the row when they are large.
constexpr bool IsLongValueType(ColumnType type) {
  return type == ColumnType::kMemo || type == ColumnType::kOle;
}

inline constexpr int kCurrencyDecimals = 4;
inline constexpr std::int64_t kCurrencyUnit = 10000;  ///< what 1 is stored as

struct ColumnInfo {
  std::string name;  ///< UTF-8
  ColumnType type = ColumnType::kLong;
  int length = 0;  ///< text: characters; binary: bytes; otherwise the size of the type, 0 for memo and OLE
  bool fixed = false;       ///< stored in the fixed part of a row
  bool compressed = false;  ///< texts may be stored with one byte per character
  bool autonumber = false;
  int precision = 0;  ///< numeric only
  int scale = 0;      ///< numeric only
};

struct IndexColumn {
  std::string name;
  bool ascending = true;
};

struct IndexInfo {
  std::string name;
  std::vector<IndexColumn> columns;
  bool unique = false;
  bool primary = false;
  bool required = false;     ///< Null is not allowed in the indexed columns
  bool ignoreNulls = false;  ///< rows whose indexed columns are all Null have no entry
  bool foreignKey = false;   ///< made by a relationship
};

}  // namespace zerbal::jet
