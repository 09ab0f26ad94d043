// Conversion of stored values to numbers and texts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "jet/format/bytes.h"
#include "jet/read/number_text.h"
#include "jet/schema.h"

namespace zerbal::jet {

/// The value of a number column; a date as days. nullopt for all other types, text included. Throws Damage
/// when the value does not have the size of its type.
std::optional<Number> NumberOf(const ColumnInfo& column, ByteView value);

/// The value of a column of type kSingle. Throws as NumberOf does, which calls it.
float SingleOf(ByteView value);

/// Appends the text of a value that is neither text nor boolean: numbers with the fewest digits that read
/// back the same, dates as 1999-12-31 23:59:59, GUIDs as {8-4-4-4-12}, others as 0x and hexadecimal digits.
void AppendValue(const ColumnInfo& column, ByteView value, std::string& out);

/// The normal form of `text` for searching in the column: the same for all spellings of a number in a number
/// column, `text` itself in others. nullopt when a number column cannot hold such a value.
std::optional<std::string> Canonical(const ColumnInfo& column, std::string_view text);

}  // namespace zerbal::jet
