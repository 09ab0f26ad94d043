#include "jet/format/code_page.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace zerbal::jet {
namespace {

/// The lowest number of a code page that is not a name for one of the system's settings.
constexpr std::uint16_t kFirstNumber = 37;
constexpr std::uint16_t kSymbols = 42;

bool Convert(std::uint16_t number, const char* bytes, int size, char16_t& character) {
  wchar_t out[2] = {};
  if (MultiByteToWideChar(number, MB_ERR_INVALID_CHARS, bytes, size, out, 2) != 1)
    return false;
  character = static_cast<char16_t>(out[0]);
  return true;
}

}  // namespace

bool CodePage::Load(std::uint16_t number) {
  CPINFO info = {};
  if (number < kFirstNumber || number == kSymbols || GetCPInfo(number, &info) == 0 || info.MaxCharSize > 2)
    return false;
  for (int byte = 0; byte < 256; ++byte) {
    char bytes[] = {static_cast<char>(byte), 0};
    char16_t& single = singles_[static_cast<std::size_t>(byte)];
    single = static_cast<char16_t>(byte);  // undefined bytes become control characters
    if (IsDBCSLeadByteEx(number, static_cast<BYTE>(byte)) == 0) {
      Convert(number, bytes, 1, single);
      continue;
    }
    single = static_cast<char16_t>(kLead + trails_.size());
    Characters& trails = trails_.emplace_back();
    trails.fill(kReplacement);
    for (int next = 0; next < 256; ++next) {
      bytes[1] = static_cast<char>(next);
      Convert(number, bytes, 2, trails[static_cast<std::size_t>(next)]);
    }
  }
  return true;
}

}  // namespace zerbal::jet
