#include "data/load_tables.h"

#include <cstdint>
#include <string>

#include "data/counters.h"
#include "data/load_error.h"
#include "jet/database.h"
#include "jet/recordset.h"
#include "settings/message_boxes.h"

namespace zerbal::data {
namespace {

using settings::NL;

jet::Recordset OpenWithIndex(const jet::Database& database, const char* table, const char* index) {
  jet::Recordset recordset = database.OpenTable(table);
  recordset.SetIndex(index);
  return recordset;
}

/// Fills the rows of a table by their codes; `fill` reads the values of one row from the recordset. The codes
/// that are missing are listed in one error under `heading`.
template <typename Rows, typename Codes, typename Fill>
void LoadByCode(jet::Recordset& source, Rows& rows, const Codes& codes, const std::string& heading,
                Fill fill) {
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
    throw LoadError(message + NL + "The program aborts.");
}

}  // namespace

ColourTable LoadColours(const std::filesystem::path& zbldata) {
  ColourTable colours;
  jet::Recordset col = OpenWithIndex(jet::Database::Open(zbldata), "col", "colcode");
  LoadByCode(col, colours.rows, kColourCodes, "Colors are missing in the table for:", [&](Colour& row) {
    row.rgb = ClampRgb(col["Col_R"].AsInteger(), col["Col_G"].AsInteger(), col["Col_B"].AsInteger());
    row.entry = col["Col_Entry"].AsText();
  });
  return colours;
}

FontTable LoadFonts(const std::filesystem::path& zbldata) {
  FontTable fonts;
  jet::Recordset fon = OpenWithIndex(jet::Database::Open(zbldata), "fon", "foncode");
  LoadByCode(fon, fonts.rows, kFontCodes, "Fonts are missing in the table for:", [&](Font& row) {
    row.name = fon["Fon_Name"].AsText();
    row.size = fon["Fon_Size"].AsInteger();
    row.entry = fon["Fon_Entry"].AsText();
  });
  return fonts;
}

RegionTable LoadRegions(const std::filesystem::path& zbldata) {
  RegionTable regions;
  jet::Recordset reg = OpenWithIndex(jet::Database::Open(zbldata), "reg", "sort");
  std::int16_t count = 0;
  for (reg.MoveFirst(); !reg.Eof(); reg.MoveNext()) {
    if (count == 0)
      regions.rows.emplace_back();  // row 0, the world
    CountUp(count);
    regions.rows.push_back({reg["Reg"].AsText(), reg["Reg_Name"].AsText(), reg["Reg_FromLon"].AsDouble(),
                            reg["Reg_FromLat"].AsDouble(), reg["Reg_ToLon"].AsDouble(),
                            reg["Reg_ToLat"].AsDouble()});
  }
  return regions;
}

ReferenceTables LoadReferenceTables(const std::filesystem::path& zbldata, const Schedule& schedule) {
  // The parts of a braced list are made in their order.
  return {LoadColours(zbldata), LoadFonts(zbldata), LoadRegions(zbldata), BuildGridBands(),
          schedule.LoadServices()};
}

}  // namespace zerbal::data
