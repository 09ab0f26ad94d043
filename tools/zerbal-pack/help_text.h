// What --help prints.
#pragma once

namespace zerbal::pack {

inline constexpr const char* kHelpText = R"(Usage:
  zerbal-pack build --out DIR [--detail low|intermediate|high|full] [--pack DIR]
  zerbal-pack schedule --out FILE --services CSV --destinations CSV --flights CSV
  zerbal-pack import --from ssim|phpvms|openflights FILE... --airports AIRPORTS --out DIR
              [--schedule FILE.mdb] [--season S27] [--from-date DATE] [--to-date DATE] [--on DATE]
              [--days 67] [--airline XX] [--keep-variations] [--codes icao|iata] [--runways RUNWAYS]
              [--services-by service-type|aircraft-type|airline|origin] [--strict]
  zerbal-pack airports --out FILE.mdb AIRPORTS [RUNWAYS] [--min-runway FEET]
              [--ils unknown=no|unknown=estimate]
  zerbal-pack export FILE.mdb DIR [--table NAME] [--index NAME] [--schema]
  zerbal-pack check DIR
  zerbal-pack diff OLD NEW [--csv DIR]
  zerbal-pack stats DIR [--csv | --json]

build      makes a complete set of sample data in DIR: the folders app_data and app_map.
             --detail  resolution of the map, high when not given (full needs the package gmt-gshhg-full)
             --pack    folder with the CSV files to build from, the sample airline's when not given
schedule   makes a schedule database (qavdata.mdb) from three CSV files; every bad row is reported,
           and nothing is written unless all is well.
import     makes services.csv, destinations.csv and flights.csv in DIR, which schedule reads, from files of
           other programs and of airlines. Every fault is reported; records that cannot be used are left
           out and listed in DIR/rejected.csv.
             --from      ssim (SSIM Chapter 7), phpvms (CSV of phpVMS 5 and 7), openflights (routes.dat)
             --airports  the airports with their codes: our airports.csv, airports.csv of OurAirports (its
                         runways.csv beside it or named by --runways), or airports.dat of OpenFlights
             --schedule  makes the database too
             --season, --from-date, --to-date, --on, --days
                         only flights that leave their first airport then; dates are as 2027-07-14, days
                         are 1 (Monday) to 7
             --airline   only flights of this airline
             --keep-variations
                         variations of a flight with the same route stay apart (ssim)
             --services-by
                         what flights of one service have in common, service-type when not given
                         (openflights: airline)
             --codes     the airport codes of the result, icao when not given
             --strict    writes nothing when there is an error or a warning
airports   makes allaprt.mdb from our airports.csv or from airports.csv and runways.csv of OurAirports.
             --min-runway  only airports with a runway of this length
             --ils         what counts for airports of which it is not known, unknown=no when not given
export     writes each table of a database as DIR/TABLE.csv.
             --table   only this table
             --index   rows in the order of this index
             --schema  also DIR/schema.csv: columns, types and indexes
check      says what is missing or wrong in the folders app_data and app_map of DIR.
diff       says which flights and destinations of the schedule NEW are not those of OLD. Each is a database,
           a folder with app_data, or a folder with services.csv, destinations.csv and flights.csv.
             --csv  also writes each kind of difference as a file in DIR
stats      prints figures of the schedule of DIR, which may be all that diff reads: flights, legs, airports,
           kilometres, the shortest and the longest leg, the busiest airports and pairs of them.
             --csv, --json  in this format instead of text

  --help     prints this
  --version  prints the version

Exit status: 0 all is well, 1 something is wrong with the data or a file, 2 the command makes no sense;
of diff: 0 the schedules are equal, 1 they differ, 2 they cannot be compared.
The sample data is made up or estimated in parts and not for navigation.
)";

}  // namespace zerbal::pack
