// Reading flights from the rows of their table. For data/ itself and zerbal-pack.
#pragma once

#include <vector>

#include "data/flight.h"
#include "data/table_access.h"

namespace zerbal::data {

/// The fields of the table of flights.
struct FlightFields {
  explicit FlightFields(const jet::Recordset& flights);

  TableField key, service, number, origin, destination;
  std::vector<TableField> stops;  ///< kMaxStopovers
};

/// Reads the current row into `flight`, whose memory is used again. The first Null ends the stopovers: what
/// follows it does not count. Throws jet::EngineError when a field that is needed is missing or cannot be
/// read.
void ReadFlight(const jet::Recordset& flights, const FlightFields& fields, Flight& flight);

}  // namespace zerbal::data
