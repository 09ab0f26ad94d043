#include "zerbal-pack/phpvms_columns.h"

#include "zerbal-pack/csv_file.h"

namespace zerbal::pack {

namespace {

PhpVmsColumns NamedColumns(const CsvHeader& header) {
  PhpVmsColumns columns;
  columns.version = 7;
  columns.airline = header.Find({"airline"});
  columns.number = header.Find({"flight_number"});
  columns.routeCode = header.Find({"route_code"});
  columns.routeLeg = header.Find({"route_leg"});
  columns.departure = header.Find({"dpt_airport"});
  columns.arrival = header.Find({"arr_airport"});
  columns.days = header.Find({"days"});
  columns.type = header.Find({"flight_type"});
  columns.aircraft = header.Find({"subfleets"});
  columns.start = header.Find({"start_date"});
  columns.end = header.Find({"end_date"});
  columns.active = header.Find({"active", "enabled"});
  return columns;
}

/// Version 5 has its columns in a fixed order. Old files have one more after the number.
PhpVmsColumns FixedColumns(bool hasLeg) {
  const std::size_t shift = hasLeg ? 1 : 0;
  PhpVmsColumns columns;
  columns.version = 5;
  columns.most = 20 + shift;
  columns.airline = 0;
  columns.number = 1;
  columns.departure = 2 + shift;
  columns.arrival = 3 + shift;
  columns.aircraft = 5 + shift;
  columns.type = 13 + shift;
  columns.days = 14 + shift;
  columns.active = 15 + shift;
  return columns;
}

}  // namespace

PhpVmsColumns FindPhpVmsColumns(const CsvRecord& first) {
  const CsvHeader header(first);
  if (header.Find({"dpt_airport"}))
    return NamedColumns(header);
  if (header.Find({"depicao"}))
    return FixedColumns(header.Find({"leg"}) == 2U);
  if (header.Find({"arr_airport", "flight_number"}))
    return NamedColumns(header);
  PhpVmsColumns columns;
  if (WholeNumber(FieldText(first, 1)))
    columns = FixedColumns(false);
  columns.hasHeader = false;
  return columns;
}

}  // namespace zerbal::pack
