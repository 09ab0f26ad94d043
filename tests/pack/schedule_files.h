// Schedules of a few rows as the three CSV files of a folder.
#pragma once

#include <filesystem>
#include <string>

#include "support/temp_folder.h"

namespace zerbal::pack::test {

/// Two services, and the airports A to E on the equator, ten degrees apart.
inline const std::string kTwoServices = "Service,Line,Name,Red,Green,Blue\nX,1,Ex,1,2,3\nY,2,Why,4,5,6\n";

inline std::string AirportsOnTheEquator(const std::string& codes) {
  std::string csv = "Code,Name,City,Longitude,Latitude,Elevation,Runways,Longest runway,ILS\n";
  for (const char code : codes)
    csv.append(1, code)
        .append(",Field ")
        .append(1, code)
        .append(",,")
        .append(std::to_string((code - 'A') * 10))
        .append(",0,0,1,9000,0\n");
  return csv;
}

/// `flights` has rows of service, number, key, origin, destination and stopover, which may be empty.
inline void WriteScheduleFiles(const std::filesystem::path& folder, const std::string& flights,
                               const std::string& airports = "ABCDE",
                               const std::string& services = kTwoServices) {
  std::filesystem::create_directories(folder);
  zerbal::test::WriteBytes(folder / "services.csv", services);
  zerbal::test::WriteBytes(folder / "destinations.csv", AirportsOnTheEquator(airports));
  zerbal::test::WriteBytes(folder / "flights.csv", "Service,Flight,Key,From,To,Stop 1\n" + flights);
}

/// Two schedules that differ in everything.
inline void WriteDifferentSchedules(const std::filesystem::path& before, const std::filesystem::path& after) {
  WriteScheduleFiles(before,
                     "X,N9,N9,A,B,\nX,N10,N10,A,B,C\nX,N11,N11,B,A,\nY,N12,N12,C,A,\nX,N13,K13,D,A,\n"
                     "X,N14,K14,D,B,\n",
                     "ABCD");
  WriteScheduleFiles(after,
                     "X,N10,N10,A,B,D\nX,N21,N21,B,A,\nX,N12,N12,C,A,\nX,N100,N100,A,E,\nX,N20,N20,A,E,C\n"
                     "X,N15,K14,D,E,\n",
                     "ABDCE", "Service,Line,Name,Red,Green,Blue\nX,1,Ex,1,2,3\n");
}

}  // namespace zerbal::pack::test
