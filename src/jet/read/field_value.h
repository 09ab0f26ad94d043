// From the stored bytes of a value to texts and numbers.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "jet/format/bytes.h"
#include "jet/read/number_text.h"
#include "jet/schema.h"

namespace zerbal::jet {

/// The number in a value of a number type (dates count as days); nothing for a type that holds none, texts
/// included. Throws Damage when the value has not the size of its type.
std::optional<Number> NumberOf(const ColumnInfo& column, ByteView value);

/// Appends the text of a value that is neither text nor boolean: numbers in their shortest form, dates as
/// 1999-12-31 23:59:59, GUIDs as {8-4-4-4-12}, anything else as 0x and hexadecimal digits.
void AppendValue(const ColumnInfo& column, ByteView value, std::string& out);

/// One spelling for each value of the column, for looking texts up: `text` with its number written anew in
/// number columns, and `text` itself in all others. Nothing when a number column cannot have such a value.
std::optional<std::string> Canonical(const ColumnInfo& column, std::string_view text);

}  // namespace zerbal::jet
