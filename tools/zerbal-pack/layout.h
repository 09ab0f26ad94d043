// The tables that this program writes: their fields and indexes in the database, and the columns by which a
// CSV file supplies them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "jet/schema.h"
#include "jet/writer.h"

namespace zerbal::pack {

/// The values that a column of a CSV file can have.
enum class ColumnUse {
  kKey,           ///< never empty, plain ASCII, different in every row
  kReference,     ///< a key of another table: never empty, plain ASCII
  kStop,          ///< as kReference, but may be empty or missing
  kCode,          ///< a second code: plain ASCII, may be empty or missing
  kText,          ///< anything, Null too
  kRequiredText,  ///< not Null
  kWhole,         ///< a whole number from `least` to `most`
  kSort,          ///< as kWhole; when missing rows are numbered 10, 20, ...
  kLongitude,     ///< see ColumnLayout::title
  kLatitude,
  kFlag,         ///< the text 0 or 1
  kUnknownFlag,  ///< as kFlag, but may be empty or missing
};

struct ColumnLayout {
  jet::ColumnInfo field;
  /// The column's plain name. A file may name a column by it or by the field's name. For positions the choice
  /// says what the numbers are: under the plain name geographic degrees (east and north positive), under the
  /// field's name degrees of the map frame, as the database holds them.
  std::string title;
  ColumnUse use = ColumnUse::kText;
  bool optional = false;     ///< the CSV file need not have the column
  bool read = true;          ///< the program reads the field by exactly this name
  bool stored = true;        ///< false: the column is for zerbal-pack alone, the database has no such field
  bool settingsKey = false;  ///< a key of the settings file, different in every row
  std::int64_t least = 0;    ///< whole numbers
  std::int64_t most = 0;
};

struct TableLayout {
  std::string name;
  std::string rowName;  ///< what one row is, for messages
  std::vector<ColumnLayout> columns;
  std::vector<jet::IndexInfo> indexes;

  std::size_t ColumnIndex(std::string_view field) const;  ///< must exist
  jet::TableSpec Spec() const;
};

/// Why the program cannot use so many rows of a table that it keeps in memory (regions, flight services);
/// nullopt when it can.
std::optional<std::string> CountFault(const TableLayout& layout, std::size_t rows);

/// Whether the settings file gives back what is written under this key.
bool CanBeSettingsKey(std::string_view key);

const TableLayout& ColourLayout();       ///< `col`
const TableLayout& FontLayout();         ///< `fon`
const TableLayout& RegionLayout();       ///< `reg`
const TableLayout& ServiceLayout();      ///< `fsrv`
const TableLayout& DestinationLayout();  ///< `dest`
const TableLayout& FlightLayout();       ///< `flit`
const TableLayout& AirportLayout();      ///< `allaprt`

}  // namespace zerbal::pack
