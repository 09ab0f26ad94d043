#include "settings/profile_text.h"

#include <algorithm>
#include <cstddef>

#include "base/case_folding.h"

namespace zerbal::settings {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kBlanks = " \t\v";
/// Trimmed from the names that a caller gives; kBlanks are trimmed from those in the file.
constexpr std::string_view kSpaces = " ";

std::string_view Trim(std::string_view text, std::string_view characters) {
  const std::size_t first = text.find_first_not_of(characters);
  if (first == std::string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

/// One line: the text without its end, and where it and the next one begin.
struct Line {
  std::size_t begin = 0;
  std::size_t next = 0;
  std::string_view text;
};

/// Walks the lines of a file. A line ends with CR LF, LF, CR or the file.
class Lines {
 public:
  explicit Lines(std::string_view bytes) : bytes_(bytes) {}

  bool Next(Line& line) {
    if (at_ >= bytes_.size())
      return false;
    const std::size_t end = std::min(bytes_.find_first_of(kLineEnd, at_), bytes_.size());
    std::size_t next = std::min(end + 1, bytes_.size());
    if (next < bytes_.size() && bytes_[end] == '\r' && bytes_[next] == '\n')
      ++next;
    line = {at_, next, bytes_.substr(at_, end - at_)};
    at_ = next;
    return true;
  }

 private:
  std::string_view bytes_;
  std::size_t at_ = 0;
};

/// The section name when the line is a header. Without a closing bracket the name runs to the line's end.
std::optional<std::string_view> HeaderName(std::string_view line) {
  const std::string_view text = Trim(line, kBlanks);
  if (text.empty() || text.front() != '[')
    return std::nullopt;
  return Trim(text.substr(1, text.find(']') - 1), kBlanks);
}

struct KeyLine {
  std::string_view name;
  std::string_view value;  ///< neither trimmed nor without quotation marks
};

std::optional<KeyLine> ParseKeyLine(std::string_view line) {
  const std::string_view text = Trim(line, kBlanks);
  const std::size_t equals = text.find('=');
  if (equals == std::string_view::npos || text.front() == ';')
    return std::nullopt;
  return KeyLine{Trim(text.substr(0, equals), kBlanks), text.substr(equals + 1)};
}

/// Where a key is, or where it would be inserted.
struct Place {
  bool sectionFound = false;
  std::size_t insertAt = 0;  ///< below the section's last key line, or below its header
  std::optional<Line> line;  ///< the key's own line
  KeyLine key;
};

Place FindPlace(std::string_view bytes, std::string_view section, std::string_view key) {
  section = Trim(section, kSpaces);
  key = Trim(key, kSpaces);
  Place place;
  Lines lines(bytes);
  Line line;
  while (lines.Next(line)) {
    if (const auto name = HeaderName(line.text)) {
      if (place.sectionFound)
        break;  // a later section of the same name is ignored
      place.sectionFound = base::EqualsIgnoringAsciiCase(*name, section);
      place.insertAt = line.next;
    } else if (place.sectionFound) {
      const auto parsed = ParseKeyLine(line.text);
      if (!parsed)
        continue;
      place.insertAt = line.next;
      if (base::EqualsIgnoringAsciiCase(parsed->name, key)) {
        place.line = line;
        place.key = *parsed;
        break;
      }
    }
  }
  return place;
}

std::string_view WithoutMarks(std::string_view value) {
  const bool marked =
      value.size() >= 2 && value.front() == value.back() && (value.front() == '"' || value.front() == '\'');
  return marked ? value.substr(1, value.size() - 2) : value;
}

std::string KeyLineText(std::string_view name, std::string_view value) {
  std::string text(name);
  text += '=';
  text += value;
  text += kLineEnd;
  return text;
}

/// Puts `text` between two lines; the line above gets an end when it has none.
std::string Inserted(std::string_view bytes, std::size_t at, std::string_view text) {
  std::string result(bytes.substr(0, at));
  if (at > 0 && bytes[at - 1] != '\r' && bytes[at - 1] != '\n')
    result += kLineEnd;
  result += text;
  result += bytes.substr(at);
  return result;
}

}  // namespace

std::optional<std::string_view> FindProfileValue(std::string_view bytes, std::string_view section,
                                                 std::string_view key) {
  const Place place = FindPlace(bytes, section, key);
  if (!place.line)
    return std::nullopt;
  return WithoutMarks(Trim(place.key.value, kBlanks));
}

std::vector<ProfileLine> ProfileLines(std::string_view bytes) {
  std::vector<ProfileLine> result;
  std::string_view section;
  Lines lines(bytes);
  Line line;
  for (int number = 1; lines.Next(line); ++number) {
    const std::string_view text = Trim(line.text, kBlanks);
    if (text.empty() || text.front() == ';')
      continue;
    if (const auto name = HeaderName(text))
      section = *name;
    else if (const auto parsed = ParseKeyLine(text))
      result.push_back({number, section, parsed->name, WithoutMarks(Trim(parsed->value, kBlanks))});
    else
      result.push_back({number, section, {}, {}});
  }
  return result;
}

std::string WithProfileValue(std::string_view bytes, std::string_view section, std::string_view key,
                             std::string_view value) {
  const Place place = FindPlace(bytes, section, key);
  if (place.line) {
    std::string result(bytes.substr(0, place.line->begin));
    result += KeyLineText(place.key.name, value);
    result += bytes.substr(place.line->next);
    return result;
  }
  const std::string line = KeyLineText(Trim(key, kSpaces), value);
  if (place.sectionFound)
    return Inserted(bytes, place.insertAt, line);
  std::string header = "[";
  header += Trim(section, kSpaces);
  header += ']';
  header += kLineEnd;
  return Inserted(bytes, bytes.size(), header + line);
}

std::vector<std::string> SplitList(std::string_view text, int n, std::string_view delimiter) {
  const int count = std::max(n, 0);
  std::vector<std::string> fields(static_cast<std::size_t>(count) + 1);
  for (std::size_t k = 1; k < fields.size(); ++k) {
    const std::size_t end = delimiter.empty() ? std::string_view::npos : text.find(delimiter.front());
    fields[k] = text.substr(0, end);
    if (end == std::string_view::npos)
      break;
    text.remove_prefix(end + 1);
  }
  return fields;
}

}  // namespace zerbal::settings
