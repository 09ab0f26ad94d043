#include "zerbal-pack/csv.h"

#include <utility>

#include "base/utf8.h"

namespace zerbal::pack {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

CsvReader::CsvReader(std::string_view text) : text_(text) {
  if (text_.starts_with(kByteOrderMark))
    at_ = kByteOrderMark.size();
}

bool CsvReader::Next(CsvRecord& record) {
  record.fields.clear();
  record.fault.reset();
  record.line = line_;
  if (at_ >= text_.size())
    return false;
  while (true) {
    ReadField(record);
    if (record.fault) {
      SkipLine();
      return true;
    }
    if (at_ >= text_.size() || AtLineEnd()) {
      SkipLineEnd();
      return true;
    }
    ++at_;  // the comma
  }
}

void CsvReader::ReadField(CsvRecord& record) {
  CsvField& field = record.fields.emplace_back();
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
    const char c = text_[at_];
    if (c == '"') {
      ++at_;
      if (at_ >= text_.size() || text_[at_] != '"')
        break;
      text.push_back('"');
      ++at_;
    } else if (AtLineEnd()) {
      const std::size_t from = at_;
      SkipLineEnd();
      text.append(text_.substr(from, at_ - from));
    } else if (const std::size_t length = base::Utf8Length(text_.substr(at_)); length == 0) {
      return Fail(record, line_, "not valid UTF-8");
    } else if (c == '\0') {
      return Fail(record, line_, "a NUL character");
    } else {
      text.append(text_.substr(at_, length));
      at_ += length;
    }
  }
  if (at_ < text_.size() && text_[at_] != ',' && !AtLineEnd()) {
    std::string reason = "text after the closing quotation mark";
    if (opened != line_)
      reason += " of a field that begins on line " + std::to_string(opened);
    Fail(record, line_, std::move(reason));
  }
}

void CsvReader::ReadPlain(CsvRecord& record, std::string& text) {
  while (at_ < text_.size() && text_[at_] != ',' && !AtLineEnd()) {
    const std::size_t length = base::Utf8Length(text_.substr(at_));
    if (length == 0)
      return Fail(record, line_, "not valid UTF-8");
    if (text_[at_] == '\0')
      return Fail(record, line_, "a NUL character");
    if (text_[at_] == '"')
      return Fail(record, line_, "a quotation mark in a field that does not begin with one");
    text.append(text_.substr(at_, length));
    at_ += length;
  }
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

void CsvReader::SkipLine() {
  while (at_ < text_.size() && !AtLineEnd())
    ++at_;
  SkipLineEnd();
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
