// The value of a column in the current row of a TableCursor as text.
#pragma once

#include <string>

#include "jet/format/bytes.h"
#include "jet/read/long_value.h"
#include "jet/read/table_cursor.h"
#include "jet/schema.h"

namespace zerbal::jet {

/// Whether values of the type are texts.
inline bool IsTextColumn(ColumnType type) {
  return type == ColumnType::kText || type == ColumnType::kMemo;
}

bool IsNull(const TableCursor& cursor, int column);

/// Calls `use` with the bytes of a value; `stored` is what the row holds of it. The bytes of a memo or OLE
/// value are read from where they are stored. Throws Damage.
template <class Use>
void WithBytes(const TableCursor& cursor, int column, ByteView stored, Use&& use) {
  const ColumnType type = cursor.Column(column).type;
  if (type == ColumnType::kMemo || type == ColumnType::kOle)
    LongValue(cursor.Pages(), stored, cursor.SharedDatabase()->options.maxLongValue).With(use);
  else
    use(stored);
}

/// Appends the value as UTF-8; nothing for Null. Throws Damage.
void AppendText(const TableCursor& cursor, int column, std::string& out);

}  // namespace zerbal::jet
