// Texts as the 2000 format stores them.
#pragma once

#include <string>
#include <string_view>

namespace zerbal::jet {

/// The UTF-16 form of a UTF-8 text. A Refusal when it is not UTF-8.
std::u16string ToUtf16Strictly(std::string_view utf8);

/// The stored form: UTF-16, or, when `compress` and it is shorter, one byte a character behind the mark
/// FF FE. A Refusal for a text that begins like that mark.
std::string StoredText(std::u16string_view text, bool compress);

}  // namespace zerbal::jet
