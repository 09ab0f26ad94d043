// Small files in the format of the public map data.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <netcdf.h>

namespace zerbal::test {

// A small file in the format of the source: bins of 90 degrees, four by two.
struct TinySource {
  std::map<std::string, std::vector<int>> ints;
  std::map<std::string, std::vector<double>> doubles;

  void WriteTo(const std::filesystem::path& file) const {
    int id = 0;
    ASSERT_EQ(nc_create(file.c_str(), NC_CLOBBER, &id), NC_NOERR);
    std::map<std::string, int> variables;
    const auto define = [&](const std::string& name, std::size_t size, int type) {
      int dimension = 0;
      ASSERT_EQ(nc_def_dim(id, ("n_" + name).c_str(), size, &dimension), NC_NOERR);
      ASSERT_EQ(nc_def_var(id, name.c_str(), type, 1, &dimension, &variables[name]), NC_NOERR);
    };
    for (const auto& [name, values] : ints)
      define(name, values.size(), name.starts_with("Relative") ? NC_SHORT : NC_INT);
    for (const auto& [name, values] : doubles)
      define(name, values.size(), NC_DOUBLE);
    ASSERT_EQ(nc_enddef(id), NC_NOERR);
    for (const auto& [name, values] : ints) {
      // Offsets above 32767 are stored as negative numbers with the same 16 bits.
      std::vector<short> shorts;
      for (const int value : values)
        shorts.push_back(static_cast<short>(value));
      const int status = name.starts_with("Relative") ? nc_put_var_short(id, variables[name], shorts.data())
                                                      : nc_put_var_int(id, variables[name], values.data());
      ASSERT_EQ(status, NC_NOERR);
    }
    for (const auto& [name, values] : doubles)
      ASSERT_EQ(nc_put_var_double(id, variables[name], values.data()), NC_NOERR);
    ASSERT_EQ(nc_close(id), NC_NOERR);
  }
};

inline int Packed(int points, int level) {
  return points << 9 | level << 6;
}

// A line from the bin north-east of Greenwich and the equator into the bin east of it, and a line in the
// south-western bin at the far side of the frame.
inline TinySource TwoLines() {
  TinySource source;
  source.ints = {{"Bin_size_in_minutes", {90 * 60}},
                 {"N_bins_in_360_longitude_range", {4}},
                 {"N_bins_in_180_degree_latitude_range", {2}},
                 {"Id_of_first_segment_in_a_bin", {0, 1, 2, 2, 2, 2, 2, 3}},
                 {"N_segments_in_a_bin", {1, 1, 0, 0, 0, 0, 1, 0}},
                 {"Id_of_first_point_in_a_segment", {0, 2, 4}},
                 {"N_points_for_a_segment", {2, 2, 3}},
                 {"Hierarchial_level_of_a_segment", {1, 1, 4}},
                 {"Relative_longitude_from_SW_corner_of_bin", {32768, 65535, 0, 100, 0, 65535, 65535}},
                 {"Relative_latitude_from_SW_corner_of_bin", {0, 21845, 21845, 65535, 0, 0, 65535}}};
  return source;
}

// Shores in one bin: land, the banks of a wide river, an island in the river, a pond on the island.
inline TinySource Shores() {
  TinySource source = TwoLines();
  source.ints.erase("N_points_for_a_segment");
  source.ints.erase("Hierarchial_level_of_a_segment");
  source.ints["Id_of_first_segment_in_a_bin"] = {0, 4, 4, 4, 4, 4, 4, 4};
  source.ints["N_segments_in_a_bin"] = {4, 0, 0, 0, 0, 0, 0, 0};
  source.ints["Id_of_first_point_in_a_segment"] = {0, 0, 2, 5};
  source.ints["Embedded_npts_levels_exit_entry_for_a_segment"] = {Packed(3, 1), Packed(2, 2), Packed(2, 3),
                                                                  Packed(2, 4)};
  source.ints["Id_of_GSHHS_ID"] = {0, 1, 2, 3};
  source.ints["Id_of_parent_polygons"] = {-1, 0, 1, 2};
  source.doubles["The_km_squared_area_of_polygons"] = {1e6, -250.5, 30, 2};
  return source;
}

}  // namespace zerbal::test
