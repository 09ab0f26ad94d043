// Index keys: byte strings that sort like the values.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "jet/schema.h"

namespace zerbal::jet {

/// Appends the key of a text in a 2000-format index with the general sort order, which ignores letter case
/// and trailing blanks. Returns false and appends nothing when the weight of a character is not known.
bool AppendTextKeyJet4(std::u16string_view utf16, bool ascending, std::vector<std::uint8_t>& key);

/// The same for the 1997 format; `bytes` is the stored text in code page 1252.
void AppendTextKeyJet3(std::string_view bytes, bool ascending, std::vector<std::uint8_t>& key);

/// Appends the key of a number, date or boolean: `bytes` is the value as stored (little-endian; one byte 0 or
/// 1 for a boolean). Returns false for types whose keys are not known and when the size is not the type's.
bool AppendFixedKey(ColumnType type, std::string_view bytes, bool ascending, std::vector<std::uint8_t>& key);

void AppendBinaryKey(std::string_view bytes, bool ascending, std::vector<std::uint8_t>& key);
/// Appends a substitute for the unknown key of a text (UTF-8). Substitutes sort after all known keys and
/// among themselves by the text, ignoring letter case and trailing blanks.
void AppendFoldedTextKey(std::string_view text, bool ascending, std::vector<std::uint8_t>& key);
void AppendNullKey(bool ascending, std::vector<std::uint8_t>& key);

}  // namespace zerbal::jet
