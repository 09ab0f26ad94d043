// CSV as in RFC 4180: commas, quotes with "" inside them for one, line breaks inside quotes. Other separators
// and habits of other programs are options.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zerbal::pack {

/// One field of a record, as UTF-8. Nothing at all is Null, "" is the empty text.
struct CsvField {
  std::string text;
  bool quoted = false;

  bool IsNull() const { return text.empty() && !quoted; }
};

/// An error in the form of a record, not in its values.
struct CsvFault {
  std::size_t line = 0;   ///< where it is detected, from 1
  std::size_t field = 0;  ///< number of the field in its record, from 1
  std::string reason;
};

struct CsvRecord {
  std::size_t line = 0;     ///< line of the file on which it begins, from 1
  std::string_view source;  ///< all of it in the reader's text, without the line end
  std::vector<CsvField> fields;
  std::optional<CsvFault> fault;  ///< the first one; the fields are then invalid

  /// A line with nothing on it.
  bool IsBlank() const { return !fault && fields.size() == 1 && fields.front().IsNull(); }
};

struct CsvForm {
  char separator = ',';
  bool backslashEscapes = false;  ///< inside quotes: the next character is part of the text
  bool lenient =
      false;  ///< blanks around quotes are skipped, quotes within other fields are part of the text
  std::string_view encoding = "UTF-8";  ///< of the file, for messages
};

/// Reads the records of a text in order. Lines end with CR LF, LF or CR. A byte order mark at the start is
/// skipped. Invalid UTF-8 and the character NUL are faults. After a fault, reading continues with the next
/// line, so that one pass finds them all.
class CsvReader {
 public:
  explicit CsvReader(std::string_view text, const CsvForm& form = {});

  /// The next record; false at the end.
  bool Next(CsvRecord& record);

 private:
  void ReadField(CsvRecord& record);
  void ReadQuoted(CsvRecord& record, std::string& text);
  bool ReadQuotedPart(CsvRecord& record, std::string& text);
  void EndQuoted(CsvRecord& record, std::size_t opened);
  void ReadPlain(CsvRecord& record, std::string& text);
  void SkipBlanksBefore(char wanted);
  void Fail(CsvRecord& record, std::size_t line, std::string reason) const;
  bool AtFieldEnd() const { return at_ >= text_.size() || text_[at_] == form_.separator || AtLineEnd(); }
  bool AtLineEnd() const;
  void SkipLineEnd();
  void SkipToLineEnd();

  std::string_view text_;
  CsvForm form_;
  std::size_t at_ = 0;
  std::size_t line_ = 1;
};

/// Appends `text` in quotes, with the quotes in it doubled.
void AppendCsvText(std::string_view text, std::string& out);

/// Ends a record.
inline constexpr std::string_view kCsvLineEnd = "\r\n";

}  // namespace zerbal::pack
