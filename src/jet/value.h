// Values that DatabaseWriter stores.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "base/null.h"

namespace zerbal::jet {

using base::Null;

/// A value for one column. DatabaseWriter refuses a value that does not fit its column (type, range, length)
/// with an EngineError that names table, column and row. Accepted are:
///   Boolean                   bool, not Null
///   Byte, Integer, Long       whole numbers
///   Single, Double, DateTime  real numbers, rounded to the type; whole numbers that are exact in it
///   Currency                  both, as an amount, rounded to four decimals
///   Numeric                   whole numbers, and texts such as "-12.50"
///   Text, Memo                texts in UTF-8
///   Binary, OLE, GUID         bytes; a GUID's 16 as they are stored
using Value = std::variant<Null, bool, std::int32_t, std::int64_t, float, double, std::string,
                           std::vector<std::uint8_t>>;

}  // namespace zerbal::jet
