// What --help prints.
#pragma once

namespace zerbal::pack {

inline constexpr const char* kHelpText = R"(Usage:
  zerbal-pack build --out DIR [--detail low|intermediate|high|full] [--pack DIR]
  zerbal-pack schedule --out FILE --services CSV --destinations CSV --flights CSV
  zerbal-pack export FILE.mdb DIR [--table NAME] [--index NAME] [--schema]
  zerbal-pack check DIR

build      makes a complete set of sample data in DIR: the folders app_data and app_map.
             --detail  resolution of the map, high when not given (full needs the package gmt-gshhg-full)
             --pack    folder with the CSV files to build from, the sample airline's when not given
schedule   makes a schedule database (qavdata.mdb) from three CSV files; every bad row is reported,
           and nothing is written unless all is well.
export     writes each table of a database as DIR/TABLE.csv.
             --table   only this table
             --index   rows in the order of this index
             --schema  also DIR/schema.csv: columns, types and indexes
check      says what is missing or wrong in the folders app_data and app_map of DIR.

  --help     prints this
  --version  prints the version

Exit status: 0 all is well, 1 something is wrong with the data or a file, 2 the command makes no sense.
The sample data is made up or estimated in parts and not for navigation.
)";

}  // namespace zerbal::pack
