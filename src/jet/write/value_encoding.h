// Values in the bytes that a column stores.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "jet/schema.h"
#include "jet/writer.h"

namespace zerbal::jet {

/// One value of a row, checked and encoded.
struct EncodedValue {
  bool isNull = false;
  std::string stored;  ///< as the column stores it; of memo and OLE the content; of a boolean one byte 0 or 1
  std::u16string text;  ///< text columns only: for their keys
};

/// Checks that `value` fits `column` and encodes it. A Refusal says what does not fit, without naming the
/// column. Null booleans do not fit: the format has no place for them.
void EncodeValue(const ColumnInfo& column, const Value& value, EncodedValue& out);

/// Appends the key of a value to an index key. A Refusal when the key is not known.
void AppendValueKey(const ColumnInfo& column, const EncodedValue& value, bool ascending,
                    std::vector<std::uint8_t>& key);

}  // namespace zerbal::jet
