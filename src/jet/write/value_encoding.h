// Encoding values and texts for their columns.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "jet/schema.h"
#include "jet/writer.h"

namespace zerbal::jet {

/// The UTF-16 form of a UTF-8 text. Throws Refusal when it is not UTF-8.
std::u16string ToUtf16Strictly(std::string_view utf8);

/// The stored form: UTF-16 or, when `compress` and shorter, kCompressedMark and one byte per character.
/// Throws Refusal for a text that would begin with the mark by itself.
std::string StoredText(std::u16string_view text, bool compress);

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
