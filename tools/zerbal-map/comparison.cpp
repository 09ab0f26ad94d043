#include "zerbal-map/comparison.h"

#include <filesystem>
#include <vector>

#include "base/error.h"
#include "data/flight_pairs.h"

namespace zerbal::mapcommand {

data::ScheduleFile OpenOldSchedule(const std::string& path) {
  std::filesystem::path file = path;
  if (std::filesystem::is_directory(file)) {
    file = data::FindDataFiles(file).files.qavdata;
    if (file.empty())
      throw base::Error("The folder '" + path + "' of --compare has no app_data/qavdata.mdb.");
  } else if (!std::filesystem::is_regular_file(file)) {
    throw base::Error("File '" + path + "' could not be found.");
  }
  return data::OpenSchedule(file);
}

map::FlightComparison CompareFlights(const data::ScheduleFile& old, const data::Schedule& schedule,
                                     const std::function<bool(const data::Flight&)>& isShown) {
  std::vector<data::Flight> before = old.schedule.LoadFlights(), after = schedule.LoadFlights();
  data::SortFlights(before);
  data::SortFlights(after);
  const data::FlightPairs pairs = data::PairFlights(before, after);
  map::FlightComparison comparison{{}, old.destinations, {}};
  for (const data::Flight* flight : pairs.dropped) {
    if (isShown(*flight))
      comparison.dropped.push_back(*flight);
  }
  for (const data::Flight* flight : pairs.added)
    comparison.added.insert(*flight);
  return comparison;
}

}  // namespace zerbal::mapcommand
