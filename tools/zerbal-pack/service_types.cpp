#include "zerbal-pack/service_types.h"

#include <algorithm>
#include <iterator>

namespace zerbal::pack {

namespace {

struct ServiceType {
  char letter;
  std::string_view name;
};

constexpr ServiceType kServiceTypes[] = {
    {'J', "Passengers, scheduled"},
    {'S', "Passengers, shuttle"},
    {'U', "Passengers, surface vehicle"},
    {'G', "Passengers, additional"},
    {'B', "Passengers, additional shuttle"},
    {'C', "Passengers, charter"},
    {'O', "Charter with special handling"},
    {'Q', "Passengers and cargo, scheduled"},
    {'R', "Passengers and cargo, additional"},
    {'L', "Passengers and cargo, charter"},
    {'F', "Cargo, scheduled"},
    {'M', "Mail, scheduled"},
    {'V', "Cargo, surface vehicle"},
    {'A', "Cargo, additional"},
    {'H', "Cargo, charter"},
    {'P', "Positioning"},
    {'T', "Technical test"},
    {'K', "Training"},
    {'D', "General aviation"},
    {'E', "Special flights"},
    {'I', "State and ambulance flights"},
    {'N', "Business aviation"},
    {'W', "Military"},
    {'Y', "Company's own type Y"},
    {'Z', "Company's own type Z"},
};

const ServiceType* FindServiceType(char letter) {
  const ServiceType* found =
      std::ranges::find_if(kServiceTypes, [=](const ServiceType& type) { return type.letter == letter; });
  return found == std::end(kServiceTypes) ? nullptr : found;
}

}  // namespace

bool IsServiceType(char letter) {
  return FindServiceType(letter) != nullptr;
}

std::string_view ServiceTypeName(char letter) {
  const ServiceType* type = FindServiceType(letter);
  return type == nullptr ? std::string_view() : type->name;
}

std::string_view PhpVms7TypeName(char letter) {
  switch (letter) {
    case 'E':
      return "VIP flights";
    case 'I':
      return "Ambulance flights";
    case 'X':
      return "Technical stops";
    default:
      return ServiceTypeName(letter);
  }
}

std::string_view PhpVms5TypeName(std::string_view type) {
  if (type.empty() || type == "P")
    return "Passengers";
  if (type == "C")
    return "Cargo";
  return type == "H" ? "Charter" : "";
}

}  // namespace zerbal::pack
