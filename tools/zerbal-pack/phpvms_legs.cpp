#include "zerbal-pack/phpvms_legs.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

#include "data/flight.h"
#include "zerbal-pack/csv_file.h"

namespace zerbal::pack {

PhpVmsLegs::Group PhpVmsLegs::GroupOf(const PhpVmsFlight& flight) {
  return {flight.airline,
          flight.number,
          flight.routeCode,
          flight.operation.days,
          flight.operation.period.from,
          flight.operation.period.to};
}

void PhpVmsLegs::Add(PhpVmsFlight flight, std::string record) {
  const auto [known, isNew] =
      lines_.try_emplace({GroupOf(flight), flight.routeLeg, flight.route}, flight.line);
  if (!isNew) {
    problems_.Add({file_, flight.line, "",
                   fmt::format("flight {} is already on line {}; taken once", flight.Name(), known->second),
                   Severity::kWarning});
    return;
  }
  if (!flight.routeLeg.empty())
    groups_[GroupOf(flight)].push_back(rows_.size());
  rows_.push_back({std::move(flight), std::move(record)});
}

void PhpVmsLegs::AddBad(const PhpVmsFlight& flight) {
  if (!flight.routeLeg.empty())
    bad_.try_emplace(GroupOf(flight), flight.line);
}

bool PhpVmsLegs::LegsRun(const std::vector<std::size_t>& rows) const {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const PhpVmsFlight& flight = rows_[rows[i]].flight;
    if (WholeNumber(flight.routeLeg) != static_cast<int>(i) + 1)
      return false;
    if (i > 0 && rows_[rows[i - 1]].flight.route.back() != flight.route.front())
      return false;
  }
  return true;
}

void PhpVmsLegs::LeaveOut(const std::vector<std::size_t>& rows, const std::string& reason,
                          PhpVmsSchedule& schedule) {
  for (const std::size_t row : rows) {
    rows_[row].joined = true;
    schedule.leftOut.push_back({rows_[row].flight.line, reason, rows_[row].record});
  }
}

void PhpVmsLegs::JoinGroup(const Group& group, std::vector<std::size_t> rows, PhpVmsSchedule& schedule) {
  if (const auto bad = bad_.find(group); bad != bad_.end())
    return LeaveOut(rows, fmt::format("belongs to a flight with an error on line {}", bad->second), schedule);
  PhpVmsFlight& firstRow = rows_[rows.front()].flight;
  std::ranges::stable_sort(rows, {},
                           [&](std::size_t row) { return WholeNumber(rows_[row].flight.routeLeg); });
  if (!LegsRun(rows)) {
    problems_.Add(
        {file_, firstRow.line, "route_leg",
         fmt::format("the legs of {} do not run 1, 2, 3 from airport to airport; each is a flight of its own",
                     firstRow.Name()),
         Severity::kWarning});
    return;
  }
  if (rows.size() > data::kMaxStopovers + 1U) {
    std::string reason = fmt::format("{} has {} stopovers; a flight has at most {}", firstRow.Name(),
                                     rows.size() - 1, data::kMaxStopovers);
    LeaveOut(rows, reason, schedule);
    problems_.Add({file_, firstRow.line, "route_leg", std::move(reason)});
    return;
  }
  // The flight stands in the place of its first row and has the type of its first leg.
  PhpVmsFlight flight = rows_[rows.front()].flight;
  flight.line = firstRow.line;
  for (std::size_t i = 1; i < rows.size(); ++i)
    flight.route.push_back(rows_[rows[i]].flight.route.back());
  const std::size_t place = *std::ranges::min_element(rows);
  for (const std::size_t row : rows)
    rows_[row].joined = row != place;
  rows_[place].flight = std::move(flight);
}

void PhpVmsLegs::Join(PhpVmsSchedule& schedule) {
  for (const auto& [group, rows] : groups_)
    JoinGroup(group, rows, schedule);
  for (Row& row : rows_) {
    if (!row.joined)
      schedule.flights.push_back(std::move(row.flight));
  }
}

}  // namespace zerbal::pack
