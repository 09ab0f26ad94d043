#include "zerbal-pack/export.h"

#include <algorithm>
#include <cstdint>
#include <ostream>
#include <set>
#include <vector>

#include <fmt/format.h>

#include "base/case_folding.h"
#include "base/file_replacement.h"
#include "base/path_text.h"
#include "jet/database.h"
#include "jet/error.h"
#include "zerbal-pack/csv.h"
#include "zerbal-pack/find_index.h"
#include "zerbal-pack/schema_csv.h"

namespace zerbal::pack {

namespace {

constexpr std::size_t kFlushAt = 1U << 20;  // bytes

void AppendHex(const std::vector<std::uint8_t>& bytes, std::string& out) {
  constexpr char kDigits[] = "0123456789abcdef";
  out += "0x";
  for (const std::uint8_t byte : bytes) {
    out.push_back(kDigits[byte >> 4U]);
    out.push_back(kDigits[byte & 15U]);
  }
}

std::string Joined(const std::vector<std::string>& names) {
  std::string joined;
  for (const std::string& name : names)
    joined.append(joined.empty() ? "" : ", ").append(name);
  return joined.empty() ? "none" : joined;
}

void WriteRows(jet::Recordset& rows, const std::filesystem::path& file) {
  base::FileReplacement output(file);
  std::string text;
  const int columns = static_cast<int>(rows.Columns().size());
  for (int i = 0; i < columns; ++i) {
    text.append(i == 0 ? "" : ",");
    AppendCsvText(rows.Columns()[static_cast<std::size_t>(i)].name, text);
  }
  text += kCsvLineEnd;
  for (; !rows.Eof(); rows.MoveNext()) {
    for (int i = 0; i < columns; ++i) {
      if (i > 0)
        text.push_back(',');
      AppendCsvValue(rows.At(i), text);
    }
    text += kCsvLineEnd;
    if (text.size() >= kFlushAt) {
      output.Write(text);
      text.clear();
    }
  }
  output.Write(text);
  output.Commit();
}

/// One export of one database.
class Exporter {
 public:
  Exporter(const ExportOptions& options, std::ostream& err)
      : options_(options), err_(err), database_(jet::Database::Open(options.file)) {}

  bool Run() {
    std::vector<std::string> tables = database_.TableNames();
    if (!options_.table.empty() && !KeepOne(tables))
      return false;
    std::filesystem::create_directories(options_.folder);
    if (options_.schema)
      fileNames_.insert(base::LowerAscii(kSchemaFile));
    for (const std::string& table : tables)
      ExportTable(table);
    if (options_.schema)
      WriteSchemaCsv(database_, tables, options_.folder / kSchemaFile);
    if (!options_.index.empty() && !indexFound_ && good_)
      Fail("no table has an index '" + options_.index + "'");
    return good_;
  }

 private:
  bool KeepOne(std::vector<std::string>& tables) {
    const auto found = std::find_if(tables.begin(), tables.end(), [&](const std::string& name) {
      return base::EqualsIgnoringEuropeanCase(name, options_.table);
    });
    if (found == tables.end()) {
      Fail(fmt::format("there is no table '{}'; the tables are: {}", options_.table, Joined(tables)));
      return false;
    }
    tables = {*found};
    return true;
  }

  void ExportTable(const std::string& table) {
    try {
      jet::Recordset rows = database_.OpenTable(table);
      if (!SelectIndex(rows, table))
        return;
      WriteRows(rows, options_.folder / base::PathOf(FreeFileName(table)));
    } catch (const jet::EngineError& error) {
      err_ << "zerbal-pack: " << error.what() << "\n";
      good_ = false;
    }
  }

  bool SelectIndex(jet::Recordset& rows, const std::string& table) {
    if (options_.index.empty())
      return true;
    if (FindIndex(rows, options_.index) != nullptr) {
      indexFound_ = true;
      rows.SetIndex(options_.index);
      return true;
    }
    if (options_.table.empty())
      return true;
    std::vector<std::string> names;
    for (const jet::IndexInfo& index : rows.Indexes())
      names.push_back(index.name);
    Fail(fmt::format("table '{}' has no index '{}'; its indexes are: {}", table, options_.index,
                     Joined(names)));
    return false;
  }

  /// Tables whose names differ only in characters that CsvFileName replaces get a number.
  std::string FreeFileName(const std::string& table) {
    const std::string plain = CsvFileName(table);
    std::string name = plain + ".csv";
    for (int number = 2; !fileNames_.insert(base::LowerAscii(name)).second; ++number)
      name = fmt::format("{}_{}.csv", plain, number);
    return name;
  }

  void Fail(const std::string& reason) {
    err_ << "zerbal-pack: " << options_.file.string() << ": " << reason << "\n";
    good_ = false;
  }

  const ExportOptions& options_;
  std::ostream& err_;
  jet::Database database_;
  std::set<std::string> fileNames_;  // in lower case
  bool indexFound_ = false;
  bool good_ = true;
};

}  // namespace

bool ExportTables(const ExportOptions& options, std::ostream& err) {
  return Exporter(options, err).Run();
}

void AppendCsvValue(const jet::Field& field, std::string& out) {
  if (field.IsNull())
    return;
  switch (field.Column().type) {
    case jet::ColumnType::kText:
    case jet::ColumnType::kMemo:
      return AppendCsvText(field.AsText(), out);
    case jet::ColumnType::kBoolean:
      out.push_back(field.AsBoolean() ? '1' : '0');
      return;
    case jet::ColumnType::kBinary:
    case jet::ColumnType::kOle:
      return AppendHex(field.AsBytes(), out);
    default:
      return field.AppendText(out);
  }
}

std::string CsvFileName(const std::string& table) {
  std::string name = table;
  for (char& c : name) {
    const bool plain = (c >= '0' && c <= '9') || (base::LowerAscii(c) >= 'a' && base::LowerAscii(c) <= 'z') ||
                       c == '_' || c == '-' || c == ' ' || static_cast<unsigned char>(c) >= 0x80;
    if (!plain)
      c = '_';
  }
  return name;
}

}  // namespace zerbal::pack
