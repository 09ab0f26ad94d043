// A region table for tests that read and write settings.
#pragma once

#include "data/regions.h"

namespace zerbal::data {

/// The world and one region.
inline RegionTable SomeRegions() {
  RegionTable regions;
  regions.rows = {{}, {"EU", "Europe", 160, 20, 220, 60}};
  return regions;
}

}  // namespace zerbal::data
