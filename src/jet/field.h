// The value of one column in the current row of a Recordset.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "jet/schema.h"

namespace zerbal::jet {

class Recordset;
class TableCursor;  // private

/// One column of the current row. A light handle: valid until its Recordset moves.
/// Conversions: whole numbers round to nearest, ties to even; texts holding nothing but a number convert too.
class Field {
 public:
  bool IsNull() const;
  /// True for a value of a text or memo column; false for Null and for columns of other types.
  bool HoldsText() const;

  /// The value as UTF-8 text; numbers in their shortest form that reads back the same; Null gives "".
  std::string AsText() const;
  /// Appends instead of returning, for callers that keep their buffer.
  void AppendText(std::string& out) const;
  /// Exact, case-sensitive comparison with a UTF-8 text; Null equals nothing.
  bool EqualsText(std::string_view text) const;

  // Each throws ConversionError when the value is Null, is no number, or does not fit.
  std::uint8_t AsByte() const;
  std::int16_t AsInteger() const;
  std::int32_t AsLong() const;
  float AsSingle() const;
  double AsDouble() const;
  bool AsBoolean() const;

  /// The raw bytes of a binary or OLE value (long values put together); empty for Null.
  std::vector<std::uint8_t> AsBytes() const;

  const ColumnInfo& Column() const;

 private:
  friend class Recordset;
  const TableCursor* cursor_ = nullptr;
  int column_ = 0;
};

}  // namespace zerbal::jet
