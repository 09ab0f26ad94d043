// Finds and changes values in the bytes of a sectioned settings file, and splits values that are lists. Does
// not access files; texts are single bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zerbal::settings {

/// The value of `key` in the first section named `section`, without the blanks and the one pair of quotation
/// marks around it; nullopt when there is no such section or key. Names match without regard to ASCII letter
/// case; spaces around `section` and `key` are ignored. The view points into `bytes`.
std::optional<std::string_view> FindProfileValue(std::string_view bytes, std::string_view section,
                                                 std::string_view key);

/// `bytes` with the value set: the line of the key that FindProfileValue sees is replaced in its place, or a
/// line is added below the section's last key, or a new section at the end. Every other byte stays; the lines
/// written end with CR LF.
std::string WithProfileValue(std::string_view bytes, std::string_view section, std::string_view key,
                             std::string_view value);

/// A line of a file that is neither blank nor a comment (";").
struct ProfileLine {
  int number = 0;            ///< from 1
  std::string_view section;  ///< empty before the first header
  std::string_view key;      ///< empty: the line has no "="
  std::string_view value;    ///< without blanks and quotation marks around it, as FindProfileValue returns it
};

/// All key lines of all sections in their order, and the lines that are not valid. For readers that refuse
/// what they do not know. The views point into `bytes`.
std::vector<ProfileLine> ProfileLines(std::string_view bytes);

/// Splits at the first character of `delimiter` into exactly n fields, numbered from 1 (element 0 is empty
/// and not used). Missing fields are empty; what follows the n-th delimiter is dropped.
std::vector<std::string> SplitList(std::string_view text, int n, std::string_view delimiter);

}  // namespace zerbal::settings
