// The single-byte text of settings files and the program's own text.
#pragma once

#include <string>
#include <string_view>

namespace zerbal::settings {

/// UTF-8 to code page 1252. A character that the code page lacks, and each byte that is no UTF-8, becomes
/// "?". The five bytes that the code page leaves undefined stand for the control characters of the same
/// value, so that every byte survives the way there and back.
std::string ToCodePage1252(std::string_view utf8);

/// Code page 1252 to UTF-8.
std::string FromCodePage1252(std::string_view bytes);

}  // namespace zerbal::settings
