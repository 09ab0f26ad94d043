// CSV as RFC 4180 has it: commas, quotes with "" inside them for one, line breaks inside quotes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zerbal::pack {

/// One field of a record, as UTF-8. Quotes matter: nothing at all is Null, "" is the empty text.
struct CsvField {
  std::string text;
  bool quoted = false;

  bool IsNull() const { return text.empty() && !quoted; }
};

/// What is wrong with the form of a record (not with its values).
struct CsvFault {
  std::size_t line = 0;   ///< where it shows, from 1
  std::size_t field = 0;  ///< number of the field in its record, from 1
  std::string reason;
};

struct CsvRecord {
  std::size_t line = 0;  ///< line of the file on which it begins, from 1
  std::vector<CsvField> fields;
  std::optional<CsvFault> fault;  ///< the first one; the fields are then not to be used

  /// A line with nothing on it.
  bool IsBlank() const { return !fault && fields.size() == 1 && fields.front().IsNull(); }
};

/// Reads the records of a text one after the other. Lines end with CR LF, LF or CR; a byte order mark in
/// front is skipped; bytes that are no UTF-8 and the character NUL are faults. After a fault reading goes on
/// with the next line, so that one pass finds them all.
class CsvReader {
 public:
  explicit CsvReader(std::string_view text);

  /// The next record; false at the end.
  bool Next(CsvRecord& record);

 private:
  void ReadField(CsvRecord& record);
  void ReadQuoted(CsvRecord& record, std::string& text);
  void ReadPlain(CsvRecord& record, std::string& text);
  void Fail(CsvRecord& record, std::size_t line, std::string reason) const;
  bool AtLineEnd() const;
  void SkipLineEnd();
  void SkipLine();

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
};

/// `text` in quotes, those in it doubled.
void AppendCsvText(std::string_view text, std::string& out);

/// Ends a record.
inline constexpr std::string_view kCsvLineEnd = "\r\n";

}  // namespace zerbal::pack
