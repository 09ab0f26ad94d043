// The records of a whole CSV file of any program, with what a spreadsheet may have made of its text.
#pragma once

#include <cstddef>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "zerbal-pack/csv.h"
#include "zerbal-pack/problems.h"

namespace zerbal::pack {

/// All records but blank ones, in order. Faults of form are reported as errors by the reader of the records,
/// which knows what they cost.
class CsvFile {
 public:
  /// `form` says how the program that makes such files writes them; separator and encoding are found here. A
  /// file that cannot be read is reported and has no records.
  CsvFile(const std::filesystem::path& file, const CsvForm& form, Problems& problems);
  CsvFile(std::string bytes, std::string fileName, const CsvForm& form, Problems& problems);

  CsvFile(const CsvFile&) = delete;  // its reader looks at its text
  CsvFile& operator=(const CsvFile&) = delete;

  const std::string& Name() const { return name_; }
  bool DecimalComma() const;

  /// False at the end. The record is valid until the next call.
  bool Next(CsvRecord& record);
  /// Begins again with the first record.
  void Rewind();

 private:
  void Decode(std::string bytes, Problems& problems);

  std::string name_;
  std::string text_;
  CsvForm form_;
  std::optional<CsvReader> reader_;
};

/// The columns of a file, by the names in its first record. Letter case and blanks do not matter.
class CsvHeader {
 public:
  explicit CsvHeader(const CsvRecord& record);

  /// The first of `names` that the file has.
  std::optional<std::size_t> Find(std::initializer_list<std::string_view> names) const;
  std::size_t Size() const { return names_.size(); }

 private:
  std::vector<std::string> names_;
};

/// The field without blanks at both ends; empty when the record has no such column.
std::string_view FieldText(const CsvRecord& record, std::optional<std::size_t> column);

/// With capitals for the letters a to z.
std::string UpperAscii(std::string_view text);

/// A whole number with blanks around it; nullopt for anything else.
std::optional<int> WholeNumber(std::string_view text);
/// Degrees from -most to most, with blanks around them; nullopt for anything else. Never negative zero.
std::optional<double> Degrees(std::string_view text, double most, bool decimalComma);

}  // namespace zerbal::pack
