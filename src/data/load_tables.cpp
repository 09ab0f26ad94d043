#include "data/load_tables.h"

#include <cstdint>
#include <string>
#include <utility>

#include "data/counters.h"
#include "jet/database.h"

namespace zerbal::data {
namespace {

using settings::NL;

jet::Recordset OpenWithIndex(const jet::Database& database, const char* table, const char* index) {
  jet::Recordset recordset = database.OpenTable(table);
  recordset.SetIndex(index);
  return recordset;
}

/// Fills the rows of a table by their codes, `fill` taking a row's values from the recordset; the codes that
/// are missing go into one box under `heading`.
template <typename Rows, typename Codes, typename Fill>
bool LoadByCode(jet::Recordset& source, Rows& rows, const Codes& codes, const std::string& heading,
                settings::MessageBoxes& boxes, Fill fill) {
  bool ok = true;
  std::string message = heading + NL;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows[i].code = codes[i];
    source.Seek(codes[i]);
    if (source.NoMatch()) {
      ok = false;
      message.append("Code = ").append(codes[i]).append(NL);
    } else {
      fill(rows[i]);
    }
  }
  if (!ok)
    boxes.Show(settings::BoxIcon::kCritical, message + NL + "The program aborts.");
  return ok;
}

}  // namespace

bool LoadColours(const std::filesystem::path& zbldata, ColourTable& colours, settings::MessageBoxes& boxes) {
  jet::Recordset col = OpenWithIndex(jet::Database::Open(zbldata), "col", "colcode");
  return LoadByCode(
      col, colours.rows, kColourCodes, "Colors are missing in the table for:", boxes, [&](Colour& row) {
        row.rgb = ClampRgb(col["Col_R"].AsInteger(), col["Col_G"].AsInteger(), col["Col_B"].AsInteger());
        row.entry = col["Col_Entry"].AsText();
      });
}

bool LoadFonts(const std::filesystem::path& zbldata, FontTable& fonts, settings::MessageBoxes& boxes) {
  jet::Recordset fon = OpenWithIndex(jet::Database::Open(zbldata), "fon", "foncode");
  return LoadByCode(fon, fonts.rows, kFontCodes, "Fonts are missing in the table for:", boxes,
                    [&](Font& row) {
                      row.name = fon["Fon_Name"].AsText();
                      row.size = fon["Fon_Size"].AsInteger();
                      row.entry = fon["Fon_Entry"].AsText();
                    });
}

void LoadRegions(const std::filesystem::path& zbldata, RegionTable& regions) {
  jet::Recordset reg = OpenWithIndex(jet::Database::Open(zbldata), "reg", "sort");
  regions.rows.clear();
  std::int16_t count = 0;
  for (reg.MoveFirst(); !reg.Eof(); reg.MoveNext()) {
    if (count == 0)
      regions.rows.emplace_back();  // row 0, the world
    CountUp(count);
    regions.rows.push_back({reg["Reg"].AsText(), reg["Reg_Name"].AsText(), reg["Reg_FromLon"].AsDouble(),
                            reg["Reg_FromLat"].AsDouble(), reg["Reg_ToLon"].AsDouble(),
                            reg["Reg_ToLat"].AsDouble()});
  }
}

bool LoadFlightServices(jet::Recordset& fsrv, FlightServiceTable& services, settings::MessageBoxes& boxes) {
  fsrv.SetIndex("sort");
  services.clear();
  std::int16_t count = 0;
  for (fsrv.MoveFirst(); !fsrv.Eof(); fsrv.MoveNext())
    CountUp(count);
  if (count < 1) {
    boxes.Show(settings::BoxIcon::kCritical, "No flightservices found. The program aborts.");
    return false;
  }
  services.reserve(static_cast<std::size_t>(count));
  for (fsrv.MoveFirst(); !fsrv.Eof(); fsrv.MoveNext()) {
    FlightService service;
    service.key = fsrv["FSrv"].AsText();
    service.displayText = fsrv["FSrv_LiNr"].AsText() + " - " + fsrv["FSrv_Name"].AsText();
    service.rgb = {fsrv["FSrv_R"].AsByte(), fsrv["FSrv_G"].AsByte(), fsrv["FSrv_B"].AsByte()};
    services.push_back(std::move(service));
  }
  return true;
}

bool LoadReferenceTables(const std::filesystem::path& zbldata, jet::Recordset& fsrv, ReferenceTables& tables,
                         settings::MessageBoxes& boxes) {
  tables.bands = BuildGridBands();
  if (!LoadColours(zbldata, tables.colours, boxes) || !LoadFonts(zbldata, tables.fonts, boxes))
    return false;
  LoadRegions(zbldata, tables.regions);
  return LoadFlightServices(fsrv, tables.services, boxes);
}

}  // namespace zerbal::data
