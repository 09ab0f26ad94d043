// Code page 1252, the single-byte text of settings files and of most databases in the 1997 format. Its five
// undefined bytes stand for the control characters of the same number, so that every byte survives the way
// to a character and back.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zerbal::base {

/// The character that a byte stands for.
char16_t CharacterOf1252(std::uint8_t byte);
/// The byte of a character; nullopt when the code page lacks it.
std::optional<std::uint8_t> ByteOf1252(char32_t character);

/// UTF-8 to code page 1252. A character that the code page lacks, and each byte that is not UTF-8, becomes
/// "?".
std::string ToCodePage1252(std::string_view utf8);

/// Code page 1252 to UTF-8.
std::string FromCodePage1252(std::string_view bytes);

}  // namespace zerbal::base
