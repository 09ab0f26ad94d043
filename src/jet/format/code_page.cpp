#include "jet/format/code_page.h"

#include <algorithm>

namespace zerbal::jet {
namespace {

// Characters of the bytes 80 to 9F in code page 1252; the others are their own number.
constexpr std::array<char16_t, 32> kUpperControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

CodePage::CodePage() {
  for (std::size_t byte = 0; byte < singles_.size(); ++byte)
    singles_[byte] = static_cast<char16_t>(byte);
  std::ranges::copy(kUpperControls, singles_.begin() + 0x80);
}

const CodePage& CodePage::Western() {
  static const CodePage page;
  return page;
}

std::shared_ptr<const CodePage> CodePage::OfNumber(std::uint16_t number) {
  if (number != kWesternCodePage) {
    const std::shared_ptr<CodePage> page(new CodePage);
    if (page->Load(number))
      return page;
  }
  return {std::shared_ptr<const void>(), &Western()};  // a static object: not owned
}

std::optional<std::uint8_t> CodePage::ByteOf(char32_t character) const {
  if (character < singles_.size() && singles_[character] == character)
    return static_cast<std::uint8_t>(character);
  const auto found = std::ranges::find(singles_, character);
  if (found == singles_.end() || IsLead(character))
    return std::nullopt;
  return static_cast<std::uint8_t>(found - singles_.begin());
}

}  // namespace zerbal::jet
