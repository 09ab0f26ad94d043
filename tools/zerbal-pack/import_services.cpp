#include "zerbal-pack/import_services.h"

namespace zerbal::pack {

namespace {

ImportedService ServiceOfAirport(const Airport& airport, AirportCodes codes) {
  const std::string& code = CodeOf(airport, codes);
  const std::string& place = airport.city.empty() ? airport.name : airport.city;
  return {ToServiceKey(code), place.empty() ? code : place};
}

}  // namespace

const std::string& CodeOf(const Airport& airport, AirportCodes codes) {
  return codes == AirportCodes::kIata && !airport.iata.empty() ? airport.iata : airport.code;
}

ImportedService ServiceOf(const ServiceTraits& traits, const ImportOptions& options) {
  switch (options.servicesBy) {
    case ServicesBy::kServiceType:
      if (traits.typeName.empty())
        return {"OTHER", "Other service types"};
      return {std::string(1, traits.type), std::string(traits.typeName)};
    case ServicesBy::kAircraftType:
      if (traits.aircraft.empty())
        return {"NONE", "No aircraft type"};
      return {ToServiceKey(traits.aircraft), traits.aircraft};
    case ServicesBy::kAirline:
      if (traits.airline.empty())
        return {"NONE", "No airline"};
      return {ToServiceKey(traits.airline), traits.airline};
    case ServicesBy::kOrigin:
      return ServiceOfAirport(*traits.origin, options.codes);
  }
  return {};
}

}  // namespace zerbal::pack
