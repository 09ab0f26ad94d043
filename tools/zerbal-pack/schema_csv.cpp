#include "zerbal-pack/schema_csv.h"

#include <initializer_list>
#include <string_view>

#include <fmt/format.h>

#include "base/file_replacement.h"
#include "jet/error.h"
#include "jet/recordset.h"
#include "zerbal-pack/csv.h"

namespace zerbal::pack {

namespace {

std::string_view TypeName(jet::ColumnType type) {
  switch (type) {
    case jet::ColumnType::kBoolean:
      return "Boolean";
    case jet::ColumnType::kByte:
      return "Byte";
    case jet::ColumnType::kInteger:
      return "Integer";
    case jet::ColumnType::kLong:
      return "Long";
    case jet::ColumnType::kCurrency:
      return "Currency";
    case jet::ColumnType::kSingle:
      return "Single";
    case jet::ColumnType::kDouble:
      return "Double";
    case jet::ColumnType::kDateTime:
      return "DateTime";
    case jet::ColumnType::kBinary:
      return "Binary";
    case jet::ColumnType::kText:
      return "Text";
    case jet::ColumnType::kOle:
      return "OLE";
    case jet::ColumnType::kMemo:
      return "Memo";
    case jet::ColumnType::kGuid:
      return "GUID";
    case jet::ColumnType::kNumeric:
      return "Numeric";
  }
  return "unknown";
}

struct Word {
  bool applies;
  std::string_view word;
};

std::string Words(std::initializer_list<Word> words) {
  std::string text;
  for (const Word& word : words) {
    if (word.applies)
      text.append(text.empty() ? "" : ", ").append(word.word);
  }
  return text;
}

void AppendRecord(std::initializer_list<std::string_view> texts, std::string& csv) {
  std::string_view separator;
  for (const std::string_view text : texts) {
    csv += separator;
    AppendCsvText(text, csv);
    separator = ",";
  }
  csv += kCsvLineEnd;
}

std::string ColumnsText(const jet::IndexInfo& index) {
  std::string text;
  for (const jet::IndexColumn& column : index.columns) {
    text.append(text.empty() ? "" : ", ").append(column.name);
    text += column.ascending ? "" : " descending";
  }
  return text;
}

void AppendTable(const jet::Recordset& table, std::string& csv) {
  for (const jet::ColumnInfo& column : table.Columns()) {
    AppendRecord({table.TableName(), "column", column.name, TypeText(column),
                  Words({{column.fixed, "fixed"},
                         {column.compressed, "compressed"},
                         {column.autonumber, "autonumber"}})},
                 csv);
  }
  for (const jet::IndexInfo& index : table.Indexes()) {
    AppendRecord({table.TableName(), "index", index.name, ColumnsText(index),
                  Words({{index.primary, "primary"},
                         {index.unique, "unique"},
                         {index.required, "required"},
                         {index.ignoreNulls, "ignore nulls"},
                         {index.foreignKey, "foreign key"}})},
                 csv);
  }
}

}  // namespace

std::string TypeText(const jet::ColumnInfo& column) {
  const std::string_view name = TypeName(column.type);
  if (column.type == jet::ColumnType::kText || column.type == jet::ColumnType::kBinary)
    return fmt::format("{}({})", name, column.length);
  if (column.type == jet::ColumnType::kNumeric)
    return fmt::format("{}({},{})", name, column.precision, column.scale);
  return std::string(name);
}

void WriteSchemaCsv(const jet::Database& database, const std::vector<std::string>& tables,
                    const std::filesystem::path& file) {
  std::string csv;
  AppendRecord({"Table", "Kind", "Name", "Definition", "Properties"}, csv);
  for (const std::string& table : tables) {
    try {
      AppendTable(database.OpenTable(table), csv);
    } catch (const jet::EngineError&) {
      continue;  // reported when its rows were exported
    }
  }
  base::FileReplacement output(file);
  output.Write(csv);
  output.Commit();
}

}  // namespace zerbal::pack
