// Comparing texts without regard to letter case, by two rules:
//   ASCII     the letters A to Z alone: names of files, sections and keys; files of other programs
//   European  Latin, Greek and Cyrillic letters: names in databases and of fonts
#pragma once

#include <string>
#include <string_view>

namespace zerbal::base {

inline char LowerAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}
/// Works on bytes, so any encoding that has ASCII as its lower half will do.
std::string LowerAscii(std::string_view text);
bool EqualsIgnoringAsciiCase(std::string_view a, std::string_view b);

/// UTF-8; each byte that is not UTF-8 becomes kReplacement.
std::string LowerEuropean(std::string_view text);
/// Whether LowerEuropean gives the same for both.
bool EqualsIgnoringEuropeanCase(std::string_view a, std::string_view b);

}  // namespace zerbal::base
