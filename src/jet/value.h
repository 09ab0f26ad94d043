// Values that DatabaseWriter stores.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace zerbal::jet {

struct Null {
  bool operator==(const Null&) const = default;
};

/// A value for one column. Texts are UTF-8. What does not fit its column (range, length, type) is refused
/// with an EngineError that names table, column and row. What fits which column:
/// Boolean: bool, never Null. Byte, Integer, Long: whole numbers. Single, Double, DateTime (days): real
/// numbers, rounded to the type, and whole ones that are exact in it. Currency: either, as an amount, rounded
/// to four decimals. Numeric: whole numbers, or a text like "-12.50". Text, Memo: texts. Binary, OLE: bytes.
/// GUID: its 16 bytes as they are stored.
using Value = std::variant<Null, bool, std::int32_t, std::int64_t, float, double, std::string,
                           std::vector<std::uint8_t>>;

}  // namespace zerbal::jet
