#include "jet/read/value_text.h"

#include <optional>
#include <string>

#include "jet/format/text.h"
#include "jet/read/field_value.h"
#include "jet/read/table_cursor.h"
#include "jet/schema.h"

namespace zerbal::jet {

bool IsNull(const TableCursor& cursor, int column) {
  if (cursor.Column(column).type == ColumnType::kBoolean)
    return false;
  return !cursor.Value(column).has_value();
}

void AppendText(const TableCursor& cursor, int column, std::string& out) {
  const ColumnInfo& info = cursor.Column(column);
  if (info.type == ColumnType::kBoolean) {
    out += cursor.Has(column) ? '1' : '0';
    return;
  }
  const std::optional<ByteView> value = cursor.Value(column);
  if (!value)
    return;
  cursor.SharedDatabase()->WithBytes(info.type, *value, [&](ByteView bytes) {
    if (IsTextType(info.type))
      AppendStoredText(bytes, cursor.Pages().TextCodePage(), out);
    else
      AppendValue(info, bytes, out);
  });
}

}  // namespace zerbal::jet
