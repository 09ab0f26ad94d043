#include "zerbal-pack/airport_table.h"

#include <utility>

#include "base/case_folding.h"

namespace zerbal::pack {

bool AirportTable::Add(Airport airport) {
  const auto index = static_cast<AirportIndex>(airports_.size());
  if (!byCode_.try_emplace(base::LowerAscii(airport.code), index).second)
    return false;
  if (!airport.iata.empty() && !byIata_.try_emplace(base::LowerAscii(airport.iata), index).second)
    airport.iata.clear();
  airports_.push_back(std::move(airport));
  return true;
}

void AirportTable::AddCode(std::string_view code, AirportIndex index) {
  byCode_.try_emplace(base::LowerAscii(code), index);
}

std::optional<AirportIndex> AirportTable::Find(std::string_view code) const {
  if (code.size() == 3 && !byIata_.empty())
    return FindIata(code);
  return Lookup(byCode_, code);
}

std::optional<AirportIndex> AirportTable::FindIata(std::string_view iata) const {
  return Lookup(byIata_, iata);
}

std::optional<AirportIndex> AirportTable::Lookup(const Index& index, std::string_view code) {
  const auto found = index.find(base::LowerAscii(code));
  return found == index.end() ? std::nullopt : std::optional(found->second);
}

}  // namespace zerbal::pack
