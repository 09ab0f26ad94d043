#include "zerbal-pack/csv_file.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "base/case_folding.h"
#include "base/file_replacement.h"
#include "zerbal-pack/csv_value.h"
#include "zerbal-pack/spreadsheet.h"

namespace zerbal::pack {

namespace {

std::string PlainLowerName(std::string_view name) {
  std::string plain = base::LowerAscii(name);
  std::erase_if(plain, [](char c) { return c == ' ' || c == '\t'; });
  return plain;
}

template <typename Number>
std::optional<Number> WholeText(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size())
    return std::nullopt;
  return number;
}

}  // namespace

CsvFile::CsvFile(const std::filesystem::path& file, const CsvForm& form, Problems& problems)
    : name_(file.string()), form_(form) {
  std::optional<std::string> bytes = base::ReadFile(file);
  if (!bytes)
    problems.Add({name_, 0, "", "cannot be read"});
  else
    Decode(*std::move(bytes), problems);
  Rewind();
}

CsvFile::CsvFile(std::string bytes, std::string fileName, const CsvForm& form, Problems& problems)
    : name_(std::move(fileName)), form_(form) {
  Decode(std::move(bytes), problems);
  Rewind();
}

void CsvFile::Decode(std::string bytes, Problems& problems) {
  SpreadsheetText decoded = DecodeSpreadsheet(std::move(bytes));
  text_ = std::move(decoded.text);
  form_.separator = FindSeparator(text_);
  form_.encoding = EncodingName(decoded.encoding);
  if (std::string note = ReadingNote(decoded.encoding, form_.separator); !note.empty())
    problems.Add({name_, 0, "", std::move(note), Severity::kNote});
}

bool CsvFile::DecimalComma() const {
  return HasDecimalComma(form_.separator);
}

bool CsvFile::Next(CsvRecord& record) {
  while (reader_->Next(record)) {
    if (!record.IsBlank())
      return true;
  }
  return false;
}

void CsvFile::Rewind() {
  reader_.emplace(text_, form_);
}

CsvHeader::CsvHeader(const CsvRecord& record) {
  for (const CsvField& field : record.fields)
    names_.push_back(PlainLowerName(field.text));
}

std::optional<std::size_t> CsvHeader::Find(std::initializer_list<std::string_view> names) const {
  for (const std::string_view name : names) {
    const auto found = std::ranges::find(names_, PlainLowerName(name));
    if (found != names_.end())
      return static_cast<std::size_t>(found - names_.begin());
  }
  return std::nullopt;
}

std::string_view FieldText(const CsvRecord& record, std::optional<std::size_t> column) {
  return column && *column < record.fields.size() ? Trimmed(record.fields[*column].text) : std::string_view();
}

std::string UpperAscii(std::string_view text) {
  std::string upper(text);
  std::ranges::transform(upper, upper.begin(),
                         [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
  return upper;
}

std::optional<int> WholeNumber(std::string_view text) {
  return WholeText<int>(Trimmed(text));
}

std::optional<double> Degrees(std::string_view text, double most, bool decimalComma) {
  std::string number(Trimmed(text));
  if (decimalComma && number.find('.') == std::string::npos)
    std::ranges::replace(number, ',', '.');
  const std::optional<double> value = WholeText<double>(number);
  return value && std::abs(*value) <= most ? std::optional(*value + 0.0) : std::nullopt;
}

}  // namespace zerbal::pack
