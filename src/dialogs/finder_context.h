// What the flight finding dialogs read and write beyond their own controls; all of it outlives them.
#pragma once

#include <string>
#include <vector>

#include "data/flight_finder.h"
#include "data/flight_lists.h"
#include "settings/message_boxes.h"

namespace zerbal::dialogs {

struct FinderContext {
  data::FlightServiceTable& services;
  jet::Recordset& flit;
  jet::Recordset& dest;
  data::FlightFinderState& state;
  std::vector<std::string>& selectedFlights;  ///< written by "Display flights"
  settings::MessageBoxes& boxes;

  data::FlightSource Source() const { return {flit, dest, services}; }
};

}  // namespace zerbal::dialogs
