// Open tables and their fields. Internal to data/.
#pragma once

#include <optional>
#include <string>

#include "jet/database.h"
#include "jet/recordset.h"

namespace zerbal::data {

inline jet::Recordset OpenWithIndex(const jet::Database& database, const char* table, const char* index) {
  jet::Recordset rows = database.OpenTable(table);
  rows.SetIndex(index);
  return rows;
}

/// Looks a field up by name once. That a table lacks the field is an error only when the field is read.
class TableField {
 public:
  TableField(const jet::Recordset& table, const char* name) : name_(name), index_(table.FindField(name)) {}

  bool Exists() const { return index_.has_value(); }
  /// The field of the current row. Throws jet::EngineError when there is no such row or field.
  jet::Field Of(const jet::Recordset& table) const {
    return table.At(index_ ? *index_ : table.FieldIndex(name_));
  }
  /// Replaces `text` by the text of the field and returns it.
  const std::string& Read(const jet::Recordset& table, std::string& text) const {
    text.clear();
    Of(table).AppendText(text);
    return text;
  }

 private:
  const char* name_;
  std::optional<int> index_;
};

}  // namespace zerbal::data
