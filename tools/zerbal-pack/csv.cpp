#include "zerbal-pack/csv.h"

#include <utility>

#include "base/utf8.h"

namespace zerbal::pack {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

CsvReader::CsvReader(std::string_view text, const CsvForm& form) : text_(text), form_(form) {
  if (text_.starts_with(kByteOrderMark))
    at_ = kByteOrderMark.size();
}

bool CsvReader::Next(CsvRecord& record) {
  record.fields.clear();
  record.fault.reset();
  record.line = line_;
  if (at_ >= text_.size())
    return false;
  const std::size_t begin = at_;
  while (true) {
    ReadField(record);
    if (record.fault)
      SkipToLineEnd();
    if (record.fault || at_ >= text_.size() || AtLineEnd()) {
      record.source = text_.substr(begin, at_ - begin);
      SkipLineEnd();
      return true;
    }
    ++at_;  // the separator
  }
}

void CsvReader::ReadField(CsvRecord& record) {
  CsvField& field = record.fields.emplace_back();
  if (form_.lenient)
    SkipBlanksBefore('"');
  field.quoted = at_ < text_.size() && text_[at_] == '"';
  if (field.quoted)
    ReadQuoted(record, field.text);
  else
    ReadPlain(record, field.text);
}

void CsvReader::ReadQuoted(CsvRecord& record, std::string& text) {
  const std::size_t opened = line_;
  const std::size_t begin = ++at_;
  while (true) {
    if (at_ >= text_.size()) {
      // Probably one quote is missing on this line: continues after the opening one, to find other faults.
      at_ = begin;
      line_ = opened;
      return Fail(record, opened, "the quotation mark that begins the field is never closed");
    }
    if (!ReadQuotedPart(record, text))
      break;
  }
  if (!record.fault)
    EndQuoted(record, opened);
}

/// Reads one character, line end or escaped character. False at the closing quotation mark, and for a fault.
bool CsvReader::ReadQuotedPart(CsvRecord& record, std::string& text) {
  const char c = text_[at_];
  if (c == '"') {
    ++at_;
    if (at_ >= text_.size() || text_[at_] != '"')
      return false;
    text.push_back('"');
    ++at_;
  } else if (AtLineEnd()) {
    const std::size_t from = at_;
    SkipLineEnd();
    text.append(text_.substr(from, at_ - from));
  } else if (form_.backslashEscapes && c == '\\' && at_ + 1 < text_.size() &&
             (text_[at_ + 1] == '\\' || text_[at_ + 1] == '"' || text_[at_ + 1] == '\'')) {
    text.push_back(text_[at_ + 1]);
    at_ += 2;
  } else if (const std::size_t length = base::Utf8Length(text_.substr(at_)); length == 0) {
    Fail(record, line_, std::string("not valid ").append(form_.encoding));
    return false;
  } else if (c == '\0') {
    Fail(record, line_, "a NUL character");
    return false;
  } else {
    text.append(text_.substr(at_, length));
    at_ += length;
  }
  return true;
}

/// After the closing quotation mark of a field that begins on line `opened`.
void CsvReader::EndQuoted(CsvRecord& record, std::size_t opened) {
  if (form_.lenient)
    SkipBlanksBefore(form_.separator);
  if (AtFieldEnd())
    return;
  std::string reason = "text after the closing quotation mark";
  if (opened != line_)
    reason += " of a field that begins on line " + std::to_string(opened);
  Fail(record, line_, std::move(reason));
}

void CsvReader::ReadPlain(CsvRecord& record, std::string& text) {
  while (!AtFieldEnd()) {
    const std::size_t length = base::Utf8Length(text_.substr(at_));
    if (length == 0)
      return Fail(record, line_, std::string("not valid ").append(form_.encoding));
    if (text_[at_] == '\0')
      return Fail(record, line_, "a NUL character");
    if (text_[at_] == '"' && !form_.lenient)
      return Fail(record, line_, "a quotation mark in a field that does not begin with one");
    text.append(text_.substr(at_, length));
    at_ += length;
  }
}

/// Skips blanks that `wanted`, the end of the line or the end of the text follows.
void CsvReader::SkipBlanksBefore(char wanted) {
  std::size_t after = at_;
  while (after < text_.size() && text_[after] == ' ')
    ++after;
  const bool atEnd = after >= text_.size() || text_[after] == '\n' || text_[after] == '\r';
  if (atEnd ? wanted != '"' : text_[after] == wanted)
    at_ = after;
}

void CsvReader::Fail(CsvRecord& record, std::size_t line, std::string reason) const {
  record.fault = CsvFault{line, record.fields.size(), std::move(reason)};
}

bool CsvReader::AtLineEnd() const {
  return at_ < text_.size() && (text_[at_] == '\n' || text_[at_] == '\r');
}

void CsvReader::SkipLineEnd() {
  if (!AtLineEnd())
    return;
  at_ += text_.substr(at_).starts_with(kCsvLineEnd) ? 2 : 1;
  ++line_;
}

void CsvReader::SkipToLineEnd() {
  while (at_ < text_.size() && !AtLineEnd())
    ++at_;
}

void AppendCsvText(std::string_view text, std::string& out) {
  out.push_back('"');
  for (const char c : text) {
    if (c == '"')
      out.push_back('"');
    out.push_back(c);
  }
  out.push_back('"');
}

}  // namespace zerbal::pack
