// Joins rows of phpVMS, which are legs, to flights with stopovers.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "zerbal-pack/phpvms_reader.h"

namespace zerbal::pack {

class PhpVmsLegs {
 public:
  PhpVmsLegs(const std::string& file, Problems& problems) : file_(file), problems_(problems) {}

  /// A row and its text in the file. The same flight once more is reported and not added.
  void Add(PhpVmsFlight flight, std::string record);
  /// A row with an error takes the flight with it of which it is a leg.
  void AddBad(const PhpVmsFlight& flight);
  void Join(PhpVmsSchedule& schedule);

 private:
  /// What rows of one flight have in common.
  using Group = std::tuple<std::string, int, std::string, Weekdays, Day, Day>;
  using Key = std::tuple<Group, std::string, std::vector<AirportIndex>>;  // with leg and airports

  struct Row {
    PhpVmsFlight flight;
    std::string record;
    bool joined = false;  ///< part of another row's flight, or left out
  };

  static Group GroupOf(const PhpVmsFlight& flight);
  /// `rows` are in the order of their legs.
  bool LegsRun(const std::vector<std::size_t>& rows) const;
  void JoinGroup(const Group& group, std::vector<std::size_t> rows, PhpVmsSchedule& schedule);
  void LeaveOut(const std::vector<std::size_t>& rows, const std::string& reason, PhpVmsSchedule& schedule);

  const std::string& file_;
  Problems& problems_;
  std::vector<Row> rows_;
  std::map<Key, std::size_t> lines_;                  // of known rows
  std::map<Group, std::vector<std::size_t>> groups_;  // rows with a number of their leg
  std::map<Group, std::size_t> bad_;                  // line of a row with an error
};

}  // namespace zerbal::pack
