// The letters that say what kind of service a flight is.
#pragma once

#include <string_view>

namespace zerbal::pack {

/// Whether airlines' schedules use the letter. X, a technical stop, occurs in messages only.
bool IsServiceType(char letter);

/// "Passengers, scheduled"; empty for unknown letters.
std::string_view ServiceTypeName(char letter);

}  // namespace zerbal::pack
