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

/// One column of the current row. A handle without a copy of the value: it is valid until its Recordset
/// moves. Conversions to whole numbers round to nearest, ties to even. A text that is nothing but a number
/// converts too, blanks around it ignored. Every operation throws EngineError when the value is damaged.
class Field {
 public:
  bool IsNull() const;
  /// True for a value of a text or memo column; false for Null and for columns of other types.
  bool HoldsText() const;

  /// The value as UTF-8 text; a number with the fewest digits that read back the same value; "" for Null.
  std::string AsText() const;
  /// Appends AsText() to `out`; reuses its memory in loops.
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

  /// The stored bytes of a value, of a memo or OLE value all of them; empty for Null and booleans.
  std::vector<std::uint8_t> AsBytes() const;

  const ColumnInfo& Column() const;

 private:
  friend class Recordset;
  const TableCursor* cursor_ = nullptr;
  int column_ = 0;
};

}  // namespace zerbal::jet
