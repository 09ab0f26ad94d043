// Reads flights from the rows of their table. Internal to data/ and zerbal-pack.
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

/// Reads the current row into `flight`, whose memory is reused. The first Null ends the stopovers: the fields
/// after it are ignored. Throws jet::EngineError when a field that is needed is missing or cannot be
/// read.
void ReadFlight(const jet::Recordset& flights, const FlightFields& fields, Flight& flight);

}  // namespace zerbal::data
