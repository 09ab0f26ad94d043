// Open tables, their fields, and rows known by their codes. Internal to data/.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "data/error.h"
#include "jet/database.h"
#include "jet/recordset.h"
#include "settings/message_boxes.h"

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
  /// The field exists.
  jet::SingleBox::Range Within(float from, float to) const { return {index_.value(), from, to}; }
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

/// Finds the row of each rule by its code, in the order of the rules, and calls `fill` with the number of the
/// rule while `source` stands on the row. Throws LoadError, which lists the codes that are missing under
/// `heading`.
template <typename Rules, typename Fill>
void LoadByCode(jet::Recordset& source, const Rules& rules, const std::string& heading, Fill fill) {
  using settings::NL;
  std::string missing;
  for (std::size_t i = 0; i < rules.size(); ++i) {
    source.Seek(rules[i].code);
    if (source.NoMatch())
      missing.append("Code = ").append(rules[i].code).append(NL);
    else
      fill(i);
  }
  if (!missing.empty())
    throw LoadError(heading + NL + missing + NL + "The program aborts.");
}

}  // namespace zerbal::data
