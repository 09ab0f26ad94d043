// Texts in XML.
#pragma once

#include <string>
#include <string_view>

namespace zerbal::mapcommand {

/// For elements and for attributes in double quotation marks. What XML cannot contain is left out: control
/// characters and the numbers FFFE and FFFF. Invalid bytes become the replacement character.
std::string XmlText(std::string_view text);

}  // namespace zerbal::mapcommand
