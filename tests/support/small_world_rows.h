// The rows of the small world.
#pragma once

#include <vector>

#include "support/database_builder.h"

namespace zerbal::test {

void AddReferenceRows(Table& col, Table& fon, Table& reg, Table& fsrv);
void AddAirportRows(Table& dest, Table& allaprt);
void AddFlightRows(Table& flit);
std::vector<Table> CoastTables();
std::vector<Table> RiverTables();
std::vector<Table> BoundaryTables();

}  // namespace zerbal::test
