#include "zerbal-pack/check_table.h"

#include <array>
#include <cstddef>
#include <vector>

#include <fmt/format.h>

#include "base/case_folding.h"
#include "jet/error.h"
#include "zerbal-pack/csv_value.h"
#include "zerbal-pack/find_index.h"

namespace zerbal::pack {

namespace {

/// An index that the program selects. `field` is given where the index must be on it.
struct NeededIndex {
  std::string_view table;
  std::string_view index;
  std::string_view field;
  bool sought;  ///< searched by key; other indexes only give the order
};

constexpr std::array<NeededIndex, 8> kNeededIndexes = {{{"col", "colcode", "", true},
                                                        {"fon", "foncode", "", true},
                                                        {"reg", "sort", "", false},
                                                        {"fsrv", "sort", "", false},
                                                        {"dest", "aprt", "AP", true},
                                                        {"flit", "fsrv", "Flit_FSrv", true},
                                                        {"flit", "flituni", "Flit_2015", true},
                                                        {"allaprt", "aprt", "AP", false}}};

bool CheckFields(const jet::Recordset& rows, const TableLayout& layout, const std::string& where,
                 CheckReport& report) {
  bool all = true;
  for (const ColumnLayout& column : layout.columns) {
    if (!column.read || rows.FindField(column.field.name))
      continue;
    report.Add(where, "field", fmt::format("field {} is missing", Quoted(column.field.name)));
    all = false;
  }
  return all;
}

void CheckIndex(const jet::Recordset& rows, const NeededIndex& needed, const std::string& where,
                CheckReport& report) {
  const jet::IndexInfo* found = FindIndex(rows, needed.index);
  if (found == nullptr) {
    report.Add(where, "index", fmt::format("index {} is missing", Quoted(needed.index)));
    return;
  }
  if (needed.field.empty())
    return;
  const bool onField = found->columns.size() == 1 &&
                       base::EqualsIgnoringEuropeanCase(found->columns.front().name, needed.field);
  if (!onField)
    report.Add(
        where, "index",
        fmt::format("index {} is not on the one field {}", Quoted(needed.index), Quoted(needed.field)));
}

/// The number of keys that are found.
std::size_t CountFound(jet::Recordset& rows, const std::vector<std::string>& keys) {
  std::size_t found = 0;
  for (const std::string& key : keys) {
    rows.Seek(key);
    found += rows.NoMatch() ? 0 : 1;
  }
  return found;
}

/// Uses the index as the program does. `count` is that of the table's rows.
void CheckOrder(jet::Recordset& rows, const NeededIndex& needed, std::size_t count, const std::string& where,
                CheckReport& report) {
  const jet::IndexInfo* index = FindIndex(rows, needed.index);
  if (index == nullptr || index->columns.empty())
    return;
  const int field = rows.FieldIndex(index->columns.front().name);
  std::vector<std::string> keys;
  std::size_t reached = 0;
  rows.SetIndex(index->name);
  for (; !rows.Eof(); rows.MoveNext()) {
    ++reached;
    const jet::Field key = rows.At(field);
    if (needed.sought && !key.IsNull() && (keys.empty() || !key.EqualsText(keys.back())))
      keys.push_back(key.AsText());
  }
  const std::size_t found = CountFound(rows, keys);
  const auto add = [&](const std::string& text) {
    report.Add(where, "index", fmt::format("index {} {}", Quoted(index->name), text));
  };
  if (rows.IndexDamaged())
    add("is damaged; the rows are sorted anew whenever it is used");
  if (reached < count && !index->ignoreNulls)
    add(fmt::format("leads to {} of {} rows", reached, count));
  if (found < keys.size())
    add(fmt::format("finds {} of its {} keys", found, keys.size()));
}

/// Throws ConversionError where the program's own conversion would.
std::string NumberFault(const jet::Field& field, const ColumnLayout& column) {
  switch (column.use) {
    case ColumnUse::kWhole: {
      const std::int64_t value = field.AsLong();
      if (value < column.least || value > column.most)
        return fmt::format("{} is not within {} to {}", Quoted(field.AsText()), column.least, column.most);
      return {};
    }
    case ColumnUse::kLongitude:
    case ColumnUse::kLatitude: {
      const int most = column.use == ColumnUse::kLongitude ? 360 : 180;
      const double value = field.AsDouble();
      if (value >= 0 && value <= most)
        return {};
      return fmt::format("{} is outside the map frame (0 to {})", Quoted(field.AsText()), most);
    }
    default:
      return {};
  }
}

std::string ValueFault(const jet::Field& field, const ColumnLayout& column) {
  const bool needed =
      column.settingsKey || column.use == ColumnUse::kKey || column.use == ColumnUse::kReference;
  if (needed && (field.IsNull() || field.EqualsText("")))
    return "is empty";
  if (column.settingsKey && !CanBeSettingsKey(field.AsText()))
    return Quoted(field.AsText()) + " cannot be a key of the settings file";
  switch (column.use) {
    case ColumnUse::kFlag:
    case ColumnUse::kUnknownFlag:
      if (field.EqualsText("0") || field.EqualsText("1"))
        return {};
      return field.IsNull() ? "is empty" : Quoted(field.AsText()) + " is neither 0 nor 1";
    case ColumnUse::kKey:
    case ColumnUse::kReference:
    case ColumnUse::kText:
    case ColumnUse::kRequiredText:
    case ColumnUse::kStop:
    case ColumnUse::kCode:
    case ColumnUse::kSort:
      return {};
    case ColumnUse::kWhole:
    case ColumnUse::kLongitude:
    case ColumnUse::kLatitude:
      break;
  }
  if (field.IsNull())
    return "is empty";
  try {
    return NumberFault(field, column);
  } catch (const jet::ConversionError&) {
    return Quoted(field.AsText()) + " is not a number that fits";
  }
}

void CheckValues(const jet::Recordset& rows, const TableLayout& layout, const std::string& where,
                 CheckReport& report) {
  for (const ColumnLayout& column : layout.columns) {
    if (!column.read)
      continue;
    const std::string fault = ValueFault(rows[column.field.name], column);
    if (!fault.empty())
      report.Add(where, column.field.name,
                 fmt::format("{}: {} {}", RowName(rows, layout), column.field.name, fault));
  }
}

}  // namespace

std::optional<jet::Recordset> OpenChecked(const jet::Database& database, const std::string& where,
                                          const std::string& table, CheckReport& report) {
  if (!database.HasTable(table)) {
    report.Add(where, "table", "the table is missing");
    return std::nullopt;
  }
  try {
    return database.OpenTable(table);
  } catch (const jet::EngineError& error) {
    report.Add(where, "damage", error.Reason());
    return std::nullopt;
  }
}

void NoteLostRows(const jet::Recordset& rows, std::size_t count, const std::string& where,
                  CheckReport& report) {
  if (count < rows.NotedRows())
    report.AddNote(
        where, fmt::format("has {} of the {} rows that it had; some may be lost", count, rows.NotedRows()));
}

bool CheckTable(jet::Recordset& rows, const TableLayout& layout, const std::string& where,
                CheckReport& report, const std::function<void(const jet::Recordset&)>& row) {
  for (const NeededIndex& needed : kNeededIndexes) {
    if (needed.table == layout.name)
      CheckIndex(rows, needed, where, report);
  }
  if (!CheckFields(rows, layout, where, report))
    return false;
  try {
    std::size_t count = 0;
    for (; !rows.Eof(); rows.MoveNext()) {
      ++count;
      CheckValues(rows, layout, where, report);
      row(rows);
    }
    NoteLostRows(rows, count, where, report);
    for (const NeededIndex& needed : kNeededIndexes) {
      if (needed.table == layout.name)
        CheckOrder(rows, needed, count, where, report);
    }
  } catch (const jet::EngineError& error) {
    report.Add(where, "damage", error.Reason());
  }
  return true;
}

std::string RowName(const jet::Recordset& rows, const TableLayout& layout) {
  for (const ColumnLayout& column : layout.columns) {
    if (column.use == ColumnUse::kKey && rows.FindField(column.field.name))
      return layout.rowName + " " + Quoted(rows[column.field.name].AsText());
  }
  return "a " + layout.rowName;
}

}  // namespace zerbal::pack
