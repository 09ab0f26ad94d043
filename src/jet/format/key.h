// Index keys: the bytes by which index entries are ordered.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "jet/schema.h"

namespace zerbal::jet {

/// Appends the key of a text in a 2000-format index with the general sort order (letter case and trailing
/// blanks are equal). `utf16` is the text. False, with nothing appended, when a character has no known
/// weight.
bool AppendTextKeyJet4(std::u16string_view utf16, bool ascending, std::vector<std::uint8_t>& key);

/// The same for the 1997 format; `bytes` is the stored text in code page 1252.
void AppendTextKeyJet3(std::string_view bytes, bool ascending, std::vector<std::uint8_t>& key);

/// Appends the key of a number, date or boolean: `bytes` is the value as stored (little-endian; one byte 0 or
/// 1 for a boolean). False for types whose keys are not known, and when `bytes` has not the type's size.
bool AppendFixedKey(ColumnType type, std::string_view bytes, bool ascending, std::vector<std::uint8_t>& key);

void AppendBinaryKey(std::string_view bytes, bool ascending, std::vector<std::uint8_t>& key);
/// A stand-in for the key of a text that has none that is known: stands behind all that have, ordered by the
/// text (UTF-8) without regard to letter case and trailing blanks.
void AppendFoldedTextKey(std::string_view text, bool ascending, std::vector<std::uint8_t>& key);
void AppendNullKey(bool ascending, std::vector<std::uint8_t>& key);

}  // namespace zerbal::jet
