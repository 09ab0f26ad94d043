// The value of a column in the current row of a TableCursor as text.
#pragma once

#include <string>

namespace zerbal::jet {

class TableCursor;

bool IsNull(const TableCursor& cursor, int column);

/// Appends the value as UTF-8; nothing for Null. Throws Damage.
void AppendText(const TableCursor& cursor, int column, std::string& out);

}  // namespace zerbal::jet
