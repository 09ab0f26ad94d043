// The program's tables, filled by tests. The comment of each names the values of a row.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "support/database_builder.h"

namespace zerbal::test {

/// code, red, green, blue, entry
inline Table ColTable(std::vector<Row> rows) {
  return {"col",
          {Text("Col"), Integer("Col_R"), Integer("Col_G"), Integer("Col_B"), Text("Col_Entry")},
          {Index("colcode", "Col")},
          std::move(rows)};
}

/// code, name, size, entry
inline Table FonTable(std::vector<Row> rows) {
  return {"fon",
          {Text("Fon"), Text("Fon_Name"), Integer("Fon_Size"), Text("Fon_Entry")},
          {Index("foncode", "Fon")},
          std::move(rows)};
}

/// sort value, code, name, from longitude, from latitude, to longitude, to latitude
inline Table RegTable(std::vector<Row> rows) {
  return {"reg",
          {Long("Reg_Sort"), Text("Reg"), Text("Reg_Name"), Double("Reg_FromLon"), Double("Reg_FromLat"),
           Double("Reg_ToLon"), Double("Reg_ToLat")},
          {Index("sort", "Reg_Sort")},
          std::move(rows)};
}

/// sort value, key, line number, name, red, green, blue; the components are integers, so that a row can
/// contain an invalid colour
inline Table FsrvTable(std::vector<Row> rows) {
  return {"fsrv",
          {Long("FSrv_Sort"), Text("FSrv"), Text("FSrv_LiNr"), Text("FSrv_Name"), Integer("FSrv_R"),
           Integer("FSrv_G"), Integer("FSrv_B")},
          {Index("sort", "FSrv_Sort")},
          std::move(rows)};
}

/// code, city
inline Table AirportTable(std::string name, std::vector<Row> rows) {
  return {std::move(name), {Text("AP"), Text("AP_City")}, {Index("aprt", "AP")}, std::move(rows)};
}

/// service, number, key, origin, stopovers 1 to 10, destination
inline Table FlitTable(std::vector<Row> rows) {
  Table flit{"flit",
             {Text("Flit_FSrv"), Text("Flit"), Text("Flit_2015"), Text("Flit_Dep")},
             {Index("fsrv", "Flit_FSrv"), Index("flituni", "Flit_2015")},
             std::move(rows)};
  for (int stop = 1; stop <= 10; ++stop)
    flit.columns.push_back(Text("Flit_Stop" + std::to_string(stop)));
  flit.columns.push_back(Text("Flit_Arr"));
  return flit;
}

/// A row of FlitTable, its number being "QV" and its key; "-" among the stopovers is Null, and so are those
/// after the last.
inline Row Flight(const std::string& service, const std::string& key, const std::string& origin,
                  std::initializer_list<std::string_view> stops, const std::string& destination) {
  Row row = {service, "QV" + key, key, origin};
  for (const std::string_view stop : stops)
    row.push_back(stop == "-" ? Cell(Null()) : Cell(std::string(stop)));
  row.resize(14, Cell(Null()));
  row.emplace_back(destination);
  return row;
}

}  // namespace zerbal::test
