// Encoding texts for the 2000 format.
#pragma once

#include <string>
#include <string_view>

namespace zerbal::jet {

/// The UTF-16 form of a UTF-8 text. Throws Refusal when it is not UTF-8.
std::u16string ToUtf16Strictly(std::string_view utf8);

/// The stored form: UTF-16 or, when `compress` and shorter, kCompressedMark and one byte per character.
/// Throws Refusal for a text that would begin with the mark by itself.
std::string StoredText(std::u16string_view text, bool compress);

}  // namespace zerbal::jet
