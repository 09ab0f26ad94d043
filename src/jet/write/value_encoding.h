// Encoding values for their columns.
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
  std::string stored;   ///< in stored form; memo and OLE: the content; boolean: one byte, 0 or 1
  std::u16string text;  ///< text columns only: for index keys
};

/// Encodes `value` for `column`. Throws Refusal, which does not name the column, when it does not fit. A
/// boolean cannot be Null: the format has no representation for it.
void EncodeValue(const ColumnInfo& column, const Value& value, EncodedValue& out);

/// Appends the key of a value to an index key. Throws Refusal when the key is not known.
void AppendValueKey(const ColumnInfo& column, const EncodedValue& value, bool ascending,
                    std::vector<std::uint8_t>& key);

}  // namespace zerbal::jet
