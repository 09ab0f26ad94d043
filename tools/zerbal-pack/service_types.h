// The letters that say what kind of service a flight is.
#pragma once

#include <string_view>

namespace zerbal::pack {

/// Whether airlines' schedules use the letter. X, a technical stop, occurs in messages only.
bool IsServiceType(char letter);

/// "Passengers, scheduled"; empty for unknown letters.
std::string_view ServiceTypeName(char letter);

/// The same for flight types of phpVMS 7, and of version 5, where no type is P.
std::string_view PhpVms7TypeName(char letter);
std::string_view PhpVms5TypeName(std::string_view type);

}  // namespace zerbal::pack
