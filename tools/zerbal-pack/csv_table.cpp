#include "zerbal-pack/csv_table.h"

#include <array>
#include <fstream>
#include <map>
#include <optional>
#include <utility>
#include <variant>

#include <fmt/format.h>

#include "base/case_folding.h"
#include "data/flight.h"
#include "zerbal-pack/csv.h"
#include "zerbal-pack/csv_value.h"
#include "zerbal-pack/spreadsheet.h"

namespace zerbal::pack {

namespace {

/// The column of the layout that a column of the file fills.
struct Target {
  static constexpr std::size_t kExtraStop = static_cast<std::size_t>(-1);  ///< a stopover beyond the last one
  std::size_t column = 0;                                                  ///< of the layout
  bool mapFrame = false;
};

using Header = std::vector<Target>;  // one per column of the file

/// A header's name without the note in brackets that may follow it.
std::string PlainName(std::string_view header) {
  const std::size_t note = header.find('(');
  std::string_view name = header.substr(0, note);
  while (!name.empty() && name.back() == ' ')
    name.remove_suffix(1);
  while (!name.empty() && name.front() == ' ')
    name.remove_prefix(1);
  return std::string(name);
}

std::string WithoutBlanks(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c != ' ')
      result.push_back(c);
  }
  return result;
}

bool SameName(std::string_view a, std::string_view b) {
  return base::EqualsIgnoringAsciiCase(WithoutBlanks(a), WithoutBlanks(b));
}

/// "Stop 11" and so on: a file may have such columns, but they must be empty.
bool IsExtraStop(std::string_view name, const TableLayout& layout) {
  if (&layout != &FlightLayout())
    return false;
  const std::string plain = base::LowerAscii(WithoutBlanks(name));
  for (const std::string_view prefix : {"stop", "flit_stop"}) {
    if (!plain.starts_with(prefix))
      continue;
    const std::string digits = plain.substr(prefix.size());
    if (digits.size() == 2 && digits.find_first_not_of("0123456789") == std::string::npos &&
        std::stoi(digits) > data::kMaxStopovers)
      return true;
  }
  return false;
}

std::optional<Target> FindTarget(std::string_view name, const TableLayout& layout) {
  for (std::size_t i = 0; i < layout.columns.size(); ++i) {
    if (SameName(name, layout.columns[i].field.name))
      return Target{i, true};
    if (SameName(name, layout.columns[i].title))
      return Target{i, false};
  }
  if (IsExtraStop(name, layout))
    return Target{Target::kExtraStop, false};
  return std::nullopt;
}

std::string KnownColumns(const TableLayout& layout) {
  std::string names;
  for (const ColumnLayout& column : layout.columns) {
    if (column.use == ColumnUse::kStop && !column.title.ends_with(" 1"))
      continue;
    names.append(names.empty() ? "" : ", ").append(column.title);
    if (column.use == ColumnUse::kStop)
      names += fmt::format(" to Stop {}", data::kMaxStopovers);
  }
  return names;
}

class TableReader {
 public:
  TableReader(std::string_view text, const CsvForm& form, CsvTable& table, Problems& problems)
      : reader_(text, form),
        decimalComma_(HasDecimalComma(form.separator)),
        table_(table),
        layout_(*table.layout),
        problems_(problems) {}

  void Read() {
    CsvRecord record;
    if (!NextRecord(record))
      return Report(0, "", "is empty; its first line must name the columns");
    if (record.fault || !ReadHeader(record))
      return;
    table_.headerRead = true;
    while (NextRecord(record)) {
      if (!record.fault)
        ReadRow(record);
    }
  }

 private:
  using Keys = std::map<std::string, std::pair<std::size_t, std::string>>;  // by lower case: line, key

  /// The next record that is not blank; faults of form are reported.
  bool NextRecord(CsvRecord& record) {
    while (reader_.Next(record)) {
      if (record.fault)
        Report(record.fault->line, NameOfColumn(record.fault->field), record.fault->reason);
      if (!record.IsBlank())
        return true;
    }
    return false;
  }

  std::string NameOfColumn(std::size_t number) const {
    return number <= names_.size() ? names_[number - 1] : std::to_string(number);
  }

  bool ReadHeader(const CsvRecord& record) {
    const std::size_t before = problems_.List().size();
    table_.titles.assign(layout_.columns.size(), "");
    for (const CsvField& field : record.fields)
      names_.push_back(PlainName(field.text));
    for (const std::string& name : names_)
      ReadHeaderName(record.line, name);
    for (std::size_t i = 0; i < layout_.columns.size(); ++i) {
      if (!table_.titles[i].empty())
        continue;
      if (!layout_.columns[i].optional)
        Report(record.line, "", fmt::format("there is no column '{}'", layout_.columns[i].title));
      table_.titles[i] = layout_.columns[i].title;
    }
    return problems_.List().size() == before;
  }

  void ReadHeaderName(std::size_t line, const std::string& name) {
    const std::optional<Target> target = FindTarget(name, layout_);
    if (!target) {
      Report(line, name,
             fmt::format("no such column in a table of {}s; they are {}", layout_.rowName,
                         KnownColumns(layout_)));
      return;
    }
    header_.push_back(*target);
    if (target->column == Target::kExtraStop)
      return;
    std::string& title = table_.titles[target->column];
    if (!title.empty())
      Report(line, name,
             title == name ? "occurs twice" : fmt::format("means the same as column '{}'", title));
    title = name;
  }

  void ReadRow(const CsvRecord& record) {
    if (record.fields.size() != header_.size()) {
      Report(record.line, "",
             fmt::format("has {} columns, the header {}", record.fields.size(), header_.size()));
      return;
    }
    CsvRow row;
    row.line = record.line;
    row.values.assign(layout_.columns.size(), jet::Null{});
    for (std::size_t i = 0; i < header_.size(); ++i) {
      if (header_[i].column == Target::kExtraStop)
        ReadExtraStop(record, i);
      else
        ReadValue(record, i, row);
    }
    FillSort(row);
    table_.rows.push_back(std::move(row));
  }

  void ReadExtraStop(const CsvRecord& record, std::size_t i) {
    if (!record.fields[i].text.empty())
      Report(record.line, names_[i],
             fmt::format("{} is one stopover too many; a flight has at most {}",
                         Quoted(record.fields[i].text), data::kMaxStopovers));
  }

  void ReadValue(const CsvRecord& record, std::size_t i, CsvRow& row) {
    const Target& target = header_[i];
    const ColumnLayout& column = layout_.columns[target.column];
    CsvValue value = ToValue(record.fields[i], column, {target.mapFrame, decimalComma_});
    if (value.fault)
      return Report(record.line, names_[i], *std::move(value.fault));
    row.values[target.column] = std::move(value.value);
    if (column.use == ColumnUse::kKey || column.settingsKey)
      CheckTwice(record.line, names_[i], record.fields[i].text);
  }

  void CheckTwice(std::size_t line, const std::string& name, const std::string& key) {
    // Indexes and the settings file ignore letter case.
    const auto [first, isNew] = keys_[name].try_emplace(base::LowerAscii(key), line, key);
    if (isNew)
      return;
    std::string reason = fmt::format("{} is already on line {}", Quoted(key), first->second.first);
    if (first->second.second != key)
      reason += fmt::format(" (as {}, which is the same)", Quoted(first->second.second));
    Report(line, name, std::move(reason));
  }

  /// Rows without a sorting number keep the order of the file.
  void FillSort(CsvRow& row) {
    for (std::size_t i = 0; i < layout_.columns.size(); ++i) {
      if (layout_.columns[i].use == ColumnUse::kSort && !HasColumn(i))
        row.values[i] = static_cast<std::int32_t>(10 * (table_.rows.size() + 1));
    }
  }

  bool HasColumn(std::size_t column) const {
    for (const Target& target : header_) {
      if (target.column == column)
        return true;
    }
    return false;
  }

  void Report(std::size_t line, std::string column, std::string reason) {
    problems_.Add({table_.file, line, std::move(column), std::move(reason)});
  }

  CsvReader reader_;
  bool decimalComma_;
  CsvTable& table_;
  const TableLayout& layout_;
  Problems& problems_;
  Header header_;
  std::vector<std::string> names_;    // of the file's columns
  std::map<std::string, Keys> keys_;  // by the column's name
};

/// All bytes of a file or pipe; nullopt when they cannot be read. A stream that appends to a text by itself
/// would take a text for which there is no memory for one that ends there.
std::optional<std::string> WholeFile(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::string bytes;
  std::array<char, 1U << 14U> part;
  while (stream) {
    stream.read(part.data(), part.size());
    bytes.append(part.data(), static_cast<std::size_t>(stream.gcount()));
  }
  if (!stream.eof() || stream.bad())
    return std::nullopt;
  return bytes;
}

}  // namespace

std::string_view CsvRow::Text(std::size_t column) const {
  const auto* text = std::get_if<std::string>(&values[column]);
  return text ? std::string_view(*text) : std::string_view();
}

void CsvTable::Report(Problems& problems, const CsvRow& row, std::size_t column, std::string reason) const {
  problems.Add({file, row.line, titles[column], std::move(reason)});
}

CsvTable ParseCsvTable(std::string_view text, std::string fileName, const TableLayout& layout,
                       Problems& problems) {
  CsvTable table;
  table.layout = &layout;
  table.file = std::move(fileName);
  const SpreadsheetText decoded = DecodeSpreadsheet(std::string(text));
  const CsvForm form{.separator = FindSeparator(decoded.text), .encoding = EncodingName(decoded.encoding)};
  if (std::string note = ReadingNote(decoded.encoding, form.separator); !note.empty())
    problems.Add({table.file, 0, "", std::move(note), Severity::kNote});
  TableReader(decoded.text, form, table, problems).Read();
  return table;
}

CsvTable ReadCsvTable(const std::filesystem::path& file, const TableLayout& layout, Problems& problems) {
  const std::optional<std::string> bytes = WholeFile(file);
  if (!bytes) {
    problems.Add({file.string(), 0, "", "cannot be read"});
    CsvTable none;
    none.layout = &layout;
    none.file = file.string();
    return none;
  }
  return ParseCsvTable(*bytes, file.string(), layout, problems);
}

}  // namespace zerbal::pack
