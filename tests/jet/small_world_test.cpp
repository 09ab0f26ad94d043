// The world that other tests live in: what its description promises.
#include "support/small_world.h"

#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "jet/database.h"
#include "jet/recordset.h"
#include "support/temp_folder.h"

namespace zerbal::jet {
namespace {

using namespace zerbal::test;

class SmallWorldTest : public testing::Test {
 protected:
  Database Open(const std::string& file) { return Database::Open(folder_.Path() / file); }

  /// One field of every row in the order of an index, separated by blanks; Null is "-".
  std::string Walk(const std::string& file, const std::string& table, const std::string& index,
                   const std::string& field) {
    Recordset rows = Open(file).OpenTable(table);
    rows.SetIndex(index);
    std::string all;
    for (; !rows.Eof(); rows.MoveNext()) {
      if (!all.empty())
        all += ' ';
      all += rows[field].IsNull() ? "-" : rows[field].AsText();
    }
    return all;
  }

  int Count(const std::string& file, const std::string& table) {
    Recordset rows = Open(file).OpenTable(table);
    int count = 0;
    for (; !rows.Eof(); rows.MoveNext())
      ++count;
    return count;
  }

  TempFolder folder_;
  SmallWorld world_;
};

TEST_F(SmallWorldTest, HoldsTheReferenceTables) {
  world_.Write(folder_.Path());
  EXPECT_EQ(Walk("app_data/zbldata.mdb", "col", "colcode", "Col"),
            "ACSYMB APALL APDEST CENTRE COAST IBOUND MAPBG RIVER SPARE ZOOM");
  EXPECT_EQ(Walk("app_data/zbldata.mdb", "fon", "foncode", "Fon"), "HIRES LORES SPARE");
  EXPECT_EQ(Walk("app_data/zbldata.mdb", "reg", "sort", "Reg"), "MED NOR ISL FJO PACW DATE FOUR LINE FLAT");
  EXPECT_EQ(Walk("app_data/qavdata.mdb", "fsrv", "sort", "FSrv"), "NOR NORX OCE oce NEW");
}

TEST_F(SmallWorldTest, HoldsTheAirports) {
  world_.Write(folder_.Path());
  EXPECT_EQ(Walk("app_data/qavdata.mdb", "dest", "aprt", "AP"),
            "ADK AKL ANC BGO CPH FAI GOT HEL HNL KEF KKN LHR LYR Lyr NRT OSL POL SUV SYD TOS TRF ZZE");
  EXPECT_EQ(Count("app_data/allaprt.mdb", "allaprt"), 26);
  Recordset dest = Open("app_data/qavdata.mdb").OpenTable("dest");
  dest.SetIndex("aprt");
  dest.Seek("Lyr");
  ASSERT_FALSE(dest.NoMatch());
  EXPECT_EQ(dest["AP_Name"].AsText(), "Lyr Strip");
  EXPECT_FLOAT_EQ(dest["AP_Lon"].AsSingle(), 196.0f);
  EXPECT_FLOAT_EQ(dest["AP_Lat"].AsSingle(), 12.0f);
  dest.Seek("ARN");
  EXPECT_TRUE(dest.NoMatch());
}

TEST_F(SmallWorldTest, HoldsTheFlights) {
  world_.Write(folder_.Path());
  EXPECT_EQ(Count("app_data/qavdata.mdb", "flit"), 44);
  std::string keys;
  for (int i = 1; i <= 44; ++i)
    keys += (i == 1 ? "K" : " K") + std::to_string(1000 + i);
  EXPECT_EQ(Walk("app_data/qavdata.mdb", "flit", "flituni", "Flit_2015"), keys);
  Recordset flit = Open("app_data/qavdata.mdb").OpenTable("flit");
  flit.SetIndex("flituni");
  flit.Seek("K1043");
  EXPECT_EQ(flit["Flit_Stop1"].AsText(), "BGO");
  EXPECT_TRUE(flit["Flit_Stop2"].IsNull());
  EXPECT_EQ(flit["Flit_Stop3"].AsText(), "TRF");
  EXPECT_EQ(flit["Flit_Arr"].AsText(), "TOS");
  flit.Seek("K1009");
  EXPECT_FALSE(flit["Flit_Stop2"].IsNull());
  flit.Seek("K1030");
  EXPECT_TRUE(flit["Flit_FSrv"].IsNull());
  flit.Seek("K1013");
  EXPECT_EQ(flit["Flit_Stop10"].AsText(), "LHR");
}

TEST_F(SmallWorldTest, HoldsTheMap) {
  world_.Write(folder_.Path());
  EXPECT_EQ(Open("app_map/coast.mdb").TableNames(),
            (std::vector<std::string>{"wcl", "KEwdb2", "ICwdb2", "IEwdb2", "AKwdb2", "KCwdb2", "CCwdb2",
                                      "GGwdb2", "QKwdb2"}));
  EXPECT_EQ(Count("app_map/coast.mdb", "GGwdb2"), 0);
  EXPECT_EQ(Count("app_map/coast.mdb", "CCwdb2"), 3);
  Recordset wcl = Open("app_map/coast.mdb").OpenTable("wcl");
  EXPECT_EQ(wcl["Lon"].AsLong(), -1000000);
  wcl.MoveNext();
  EXPECT_EQ(wcl["Lon"].AsLong(), 207000000);
  EXPECT_EQ(wcl["Lat"].AsLong(), 28000000);
  EXPECT_EQ(Open("app_map/river.mdb").TableNames().size(), 3u);
  EXPECT_EQ(Open("app_map/ibound.mdb").TableNames().size(), 2u);
}

TEST_F(SmallWorldTest, CanBeChangedBeforeItIsWritten) {
  world_.Write(folder_.Path());
  world_.LeaveOut("river.mdb");
  world_.col.RemoveRow("Col", "RIVER");
  world_.fsrv.rows.clear();
  world_.dest.CellOf(world_.dest.RowWhere("AP", "OSL"), "AP_Elev") = Null();
  world_.flit.rows.push_back(FlightRow("NOR", "ZB199", "K9001", "OSL", {"BGO"}, "TOS"));
  world_.coast.push_back(MapTable("AEwdb2", {At(20, 50), At(21, 51), kPenUp}));
  SmallWorld::MapTableOf(world_.ibound, "IEwdb2").rows.clear();
  world_.Write(folder_.Path());
  EXPECT_FALSE(std::filesystem::exists(folder_ / "app_map/river.mdb"));
  EXPECT_EQ(Count("app_data/zbldata.mdb", "col"), 9);
  EXPECT_EQ(Count("app_data/qavdata.mdb", "fsrv"), 0);
  EXPECT_EQ(Count("app_data/qavdata.mdb", "flit"), 45);
  EXPECT_EQ(Count("app_map/coast.mdb", "AEwdb2"), 3);
  EXPECT_EQ(Count("app_map/ibound.mdb", "IEwdb2"), 0);
  Recordset dest = Open("app_data/qavdata.mdb").OpenTable("dest");
  dest.SetIndex("aprt");
  dest.Seek("OSL");
  EXPECT_TRUE(dest["AP_Elev"].IsNull());
}

TEST_F(SmallWorldTest, RefusesToChangeWhatIsNotThere) {
  EXPECT_THROW(world_.col.RemoveRow("Col", "nothing"), std::logic_error);
  EXPECT_THROW(world_.col.ColumnIndex("nothing"), std::logic_error);
  EXPECT_THROW(SmallWorld::MapTableOf(world_.coast, "nothing"), std::logic_error);
}

}  // namespace
}  // namespace zerbal::jet
