// Fuzz target: settings files of any bytes. Reads a value, writes one and reads it back; all other lines keep
// their bytes. An input is section, key and value, each with a NUL after it, and the bytes of the file.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/code_page_1252.h"
#include "base/numbers.h"
#include "require.h"
#include "settings/profile_text.h"

namespace {

using zerbal::fuzz::Require;
using zerbal::settings::FindProfileValue;
using zerbal::settings::WithProfileValue;
namespace base = zerbal::base;
namespace settings = zerbal::settings;

std::string_view TakeText(std::string_view& input) {
  const std::size_t end = input.find('\0');
  const std::string_view text = input.substr(0, end);
  input.remove_prefix(end == std::string_view::npos ? input.size() : end + 1);
  return text;
}

bool HasNoLineEnd(std::string_view text) {
  return text.find_first_of("\r\n") == std::string_view::npos;
}

std::string_view Trimmed(std::string_view text) {
  while (!text.empty() && std::string_view(" \t\v").find(text.front()) != std::string_view::npos)
    text.remove_prefix(1);
  while (!text.empty() && std::string_view(" \t\v").find(text.back()) != std::string_view::npos)
    text.remove_suffix(1);
  return text;
}

std::string_view WithoutQuotes(std::string_view value) {
  if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
    return value.substr(1, value.size() - 2);
  return value;
}

/// True for names that a file can store: without characters that end a name, and not a header or comment.
bool NamesCanBeStored(std::string_view section, std::string_view key) {
  return HasNoLineEnd(section) && HasNoLineEnd(key) && section.find(']') == std::string_view::npos &&
         key.find('=') == std::string_view::npos && section.find_first_of("\t\v") == std::string_view::npos &&
         key.find_first_of("\t\v") == std::string_view::npos && !Trimmed(key).starts_with('[') &&
         !Trimmed(key).starts_with(';');
}

/// The lines with their line ends.
std::vector<std::string_view> SplitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool pair = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if ((text[i] != '\n' && text[i] != '\r') || pair)
      continue;
    lines.push_back(text.substr(begin, i + 1 - begin));
    begin = i + 1;
  }
  if (begin < text.size())
    lines.push_back(text.substr(begin));
  return lines;
}

bool HasLineEnd(std::string_view line) {
  return line.ends_with('\n') || line.ends_with('\r');
}

/// The change either replaces one line, or inserts a key line, possibly with a header before it. The line
/// before an insertion may get the line end that it lacked.
void RequireOneChange(std::string_view before, std::string_view after, bool replaced) {
  std::vector<std::string_view> old = SplitLines(before);
  std::vector<std::string_view> now = SplitLines(after);
  while (!old.empty() && !now.empty() && old.back() == now.back()) {
    old.pop_back();
    now.pop_back();
  }
  const auto [oldRest, nowRest] = std::mismatch(old.begin(), old.end(), now.begin(), now.end());
  const auto removed = old.end() - oldRest;
  const auto added = now.end() - nowRest;
  if (replaced) {
    Require(removed <= 1 && added == removed, "a line other than that of the key changed");
    return;
  }
  const bool ended = removed == 1 && !HasLineEnd(*oldRest) && *nowRest == std::string(*oldRest) + "\r\n";
  const auto more = added - (ended ? 1 : 0);
  Require(removed == (ended ? 1 : 0) && more >= 1 && more <= 2, "another line changed");
}

void CheckWriting(std::string_view file, std::string_view section, std::string_view key,
                  std::string_view value) {
  const bool replaced = FindProfileValue(file, section, key).has_value();
  const std::string after = WithProfileValue(file, section, key, value);
  if (!NamesCanBeStored(section, key) || !HasNoLineEnd(value))
    return;
  const auto found = FindProfileValue(after, section, key);
  Require(found.has_value(), "a written key is missing");
  Require(*found == WithoutQuotes(Trimmed(value)), "a written value differs");
  RequireOneChange(file, after, replaced);
  Require(WithProfileValue(after, section, key, value) == after,
          "writing the same value again changed the file");
}

void CheckTexts(std::string_view text) {
  Require(base::ToCodePage1252(base::FromCodePage1252(text)) == text,
          "a round trip through UTF-8 changed bytes");
  Require(base::ToCodePage1252(text).size() <= text.size(), "the conversion added bytes");
  const double number = base::LeadingNumber(text);
  Require(base::LeadingNumber(base::DecimalText(number)) == number, "a written number differs");
  Require(settings::SplitList(text, 3, ",").size() == 4, "the number of fields differs");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::string_view section = TakeText(input);
  const std::string_view key = TakeText(input);
  const std::string_view value = TakeText(input);
  CheckWriting(input, section, key, value);
  CheckTexts(value);
  return 0;
}
