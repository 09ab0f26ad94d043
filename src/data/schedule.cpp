#include "data/schedule.h"

#include <string>
#include <utility>

#include "data/error.h"
#include "data/flight_reader.h"

namespace zerbal::data {

struct ScheduleTables {
  ScheduleTables(jet::Recordset openServices, jet::Recordset openFlights)
      : services(std::move(openServices)), flights(std::move(openFlights)) {}

  void SelectByService() {
    byKey = false;
    flights.SetIndex("fsrv");
  }
  void SelectStoredOrder() {
    byKey = false;
    flights.SetIndex("");
  }
  void SelectByKey() {
    if (!byKey)
      flights.SetIndex("flituni");
    byKey = true;
  }

  jet::Recordset services;
  jet::Recordset flights;
  FlightFields fields{flights};
  bool byKey = false;  ///< the index of keys is selected
  // Reused buffers.
  Flight flight;
  std::string origin, destination;
};

const Flight& FlightRow::Read() const {
  ReadFlight(tables_->flights, tables_->fields, tables_->flight);
  return tables_->flight;
}

std::string_view FlightRow::Origin() const {
  return tables_->fields.origin.Read(tables_->flights, tables_->origin);
}

std::string_view FlightRow::Destination() const {
  return tables_->fields.destination.Read(tables_->flights, tables_->destination);
}

Schedule::Schedule(jet::Recordset services, jet::Recordset flights)
    : tables_(std::make_unique<ScheduleTables>(std::move(services), std::move(flights))) {}

Schedule::Schedule(Schedule&&) noexcept = default;
Schedule& Schedule::operator=(Schedule&&) noexcept = default;
Schedule::~Schedule() = default;

FlightServiceTable Schedule::LoadServices() const {
  jet::Recordset& rows = tables_->services;
  rows.SetIndex("sort");
  int count = 0;
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext())
    CountUp(count);
  if (count < 1)
    throw LoadError("No flightservices found. The program aborts.");
  FlightServiceTable services;
  services.reserve(static_cast<std::size_t>(count));
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
    FlightService service;
    service.key = rows["FSrv"].AsText();
    service.displayText = rows["FSrv_LiNr"].AsText() + " - " + rows["FSrv_Name"].AsText();
    service.rgb = {rows["FSrv_R"].AsByte(), rows["FSrv_G"].AsByte(), rows["FSrv_B"].AsByte()};
    services.push_back(std::move(service));
  }
  return services;
}

void Schedule::VisitFlights(std::string_view service, const Visitor& visit) const {
  tables_->SelectByService();
  jet::Recordset& flights = tables_->flights;
  flights.Seek(service);
  if (flights.NoMatch())
    return;
  const TableField& key = tables_->fields.service;
  while (!flights.Eof() && key.Of(flights).EqualsText(service) && visit(FlightRow(*tables_)))
    flights.MoveNext();
}

std::vector<Flight> Schedule::LoadFlights() const {
  tables_->SelectStoredOrder();
  std::vector<Flight> all;
  for (jet::Recordset& rows = tables_->flights; !rows.Eof(); rows.MoveNext())
    ReadFlight(rows, tables_->fields, all.emplace_back());
  return all;
}

std::optional<FlightRow> Schedule::Find(std::string_view key) const {
  tables_->SelectByKey();
  tables_->flights.Seek(key);
  if (tables_->flights.NoMatch())
    return std::nullopt;
  return FlightRow(*tables_);
}

}  // namespace zerbal::data
