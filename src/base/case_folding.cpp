#include "base/case_folding.h"

#include <algorithm>

#include "base/utf8.h"

namespace zerbal::base {
namespace {

char32_t LowerEuropean(char32_t c) {
  if (c < 0x80)
    return c >= 'A' && c <= 'Z' ? c + 32 : c;
  if ((c >= 0xC0 && c <= 0xDE && c != 0xD7) || (c >= 0x391 && c <= 0x3A9) || (c >= 0x410 && c <= 0x42F))
    return c + 32;
  if (c >= 0x400 && c <= 0x40F)
    return c + 80;
  if (c == 0x178)
    return 0xFF;
  const bool oddIsUpper = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
  const bool evenIsUpper = (c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177);
  if ((oddIsUpper && c % 2 == 1) || (evenIsUpper && c % 2 == 0))
    return c + 1;
  return c;
}

}  // namespace

std::string LowerAscii(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(), [](char c) { return LowerAscii(c); });
  return lower;
}

bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) { return LowerAscii(x) == LowerAscii(y); });
}

std::string LowerEuropean(std::string_view text) {
  std::string lower;
  lower.reserve(text.size());
  while (!text.empty())
    AppendUtf8(LowerEuropean(TakeUtf8(text)), lower);
  return lower;
}

bool EqualsIgnoringEuropeanCase(std::string_view a, std::string_view b) {
  while (!a.empty() && !b.empty()) {
    if (LowerEuropean(TakeUtf8(a)) != LowerEuropean(TakeUtf8(b)))
      return false;
  }
  return a.empty() && b.empty();
}

}  // namespace zerbal::base
