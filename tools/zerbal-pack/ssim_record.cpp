#include "zerbal-pack/ssim_record.h"

#include <algorithm>

namespace zerbal::pack {

namespace {

constexpr std::string_view kOpenDate = "00XXX";
constexpr std::string_view kMonths = "JANFEBMARAPRMAYJUNJULAUGSEPOCTNOVDEC";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

char Normalized(char c) {
  if (c >= 'a' && c <= 'z')
    return static_cast<char>(c - 'a' + 'A');
  return c == '\t' || c == '\0' ? ' ' : c;
}

}  // namespace

void SsimRecord::Assign(std::string_view line) {
  const std::size_t tab = line.find('\t');
  firstTab_ = tab == std::string_view::npos ? 0 : tab + 1;
  const std::size_t last = line.find_last_not_of(" \t");
  lastColumn_ = last == std::string_view::npos ? 0 : last + 1;
  const std::size_t length = std::min(line.size(), kColumns);
  std::transform(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(length), columns_.begin(),
                 Normalized);
  std::fill(columns_.begin() + static_cast<std::ptrdiff_t>(length), columns_.end(), ' ');
}

std::string_view SsimRecord::Text(std::size_t first, std::size_t last) const {
  std::string_view text = Columns(first, last);
  while (text.starts_with(' '))
    text.remove_prefix(1);
  while (text.ends_with(' '))
    text.remove_suffix(1);
  return text;
}

bool IsPadding(std::string_view line) {
  while (line.ends_with(' ') || line.ends_with('\t'))
    line.remove_suffix(1);
  return line.find_first_not_of('0') == std::string_view::npos;
}

std::optional<SsimDate> ParseSsimDate(std::string_view text) {
  if (text.size() != 7)
    return std::nullopt;
  const std::string_view year = text.substr(5);
  if (text.starts_with(kOpenDate) && (year == "00" || year == "  "))
    return SsimDate{true, 0};
  if (!IsDigit(text[0]) || !IsDigit(text[1]) || !IsDigit(year[0]) || !IsDigit(year[1]))
    return std::nullopt;
  const std::size_t month = kMonths.find(text.substr(2, 3));
  if (month == std::string_view::npos || month % 3 != 0)
    return std::nullopt;
  const int number = (year[0] - '0') * 10 + (year[1] - '0');
  const std::optional<Day> day =
      ToDay(number < 70 ? 2000 + number : 1900 + number, static_cast<int>(month / 3) + 1,
            (text[0] - '0') * 10 + (text[1] - '0'));
  return day ? std::optional(SsimDate{false, *day}) : std::nullopt;
}

std::optional<int> ParseSsimNumber(std::string_view text) {
  while (text.starts_with(' '))
    text.remove_prefix(1);
  if (text.empty() || !std::all_of(text.begin(), text.end(), IsDigit))
    return std::nullopt;
  int number = 0;
  for (const char c : text)
    number = number * 10 + (c - '0');
  return number;
}

}  // namespace zerbal::pack
