#include "zerbal-pack/ssim_import.h"

#include <vector>

#include "zerbal-pack/import_services.h"
#include "zerbal-pack/service_types.h"

namespace zerbal::pack {

Operation OperationOf(const SsimLeg& firstLeg) {
  return {firstLeg.period, firstLeg.days, firstLeg.fortnightly};
}

void ImportSsim(const SsimSchedule& ssim, const AirportTable& airports, const ImportOptions& options,
                ImportedSchedule& schedule) {
  schedule.Reserve(ssim.flights.size());
  std::vector<AirportIndex> route;
  for (const SsimFlight& flight : ssim.flights) {
    const std::span<const SsimLeg> legs = ssim.LegsOf(flight);
    const SsimLeg& first = legs.front();
    const std::string airline = first.id.Airline();
    if (!options.filter.Takes(airline, OperationOf(first)))
      continue;
    route.assign(1, first.departure);
    for (const SsimLeg& leg : legs)
      route.push_back(leg.arrival);
    const ServiceTraits traits{first.serviceType, ServiceTypeName(first.serviceType), first.Aircraft(),
                               airline, &airports[first.departure]};
    schedule.Add(first.id.Name(), std::to_string(first.id.Variation()), route, ServiceOf(traits, options));
  }
}

}  // namespace zerbal::pack
