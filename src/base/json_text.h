// Strings of JSON.
#pragma once

#include <string>
#include <string_view>

namespace zerbal::base {

/// UTF-8 as a string of JSON, in quotation marks. An invalid byte becomes the replacement character.
std::string JsonText(std::string_view text);

}  // namespace zerbal::base
