// Style files: sections and keys as in the settings file, in UTF-8.
//
//   [Colors]        Background, Land, Water, Coast, River, Boundary, Centre, Airport, Destination,
//                   AircraftSymbol, Graticule, Frequency1 to Frequency4, Text, Box, Frame:
//                   "red,green,blue" or "#rrggbb"
//   [FlightColors]  the keys of flight services: as in [Colors]
//   [Contrast]      Flights: 1 to 21
//   [Widths]        Coast, River, Boundary, Graticule, Flight, Flights1 to Flights4, Airport, Frame:
//                   logical pixels
//   [Fonts]         Label, Legend, Title: "name,size" in points
//
// Names match without regard to ASCII letter case. What a file does not set stays as it is; colours that it
// does not set and that depend on the background follow it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "print/print_style.h"

namespace zerbal::print {

/// Throws base::FileError, which names `file` and the line, for a section, key or value that is not known and
/// for a key that is given twice.
void ReadStyle(std::string_view text, const std::string& file, PrintStyle& style);

/// The text of a style that needs no file: "dark" or "print".
std::optional<std::string_view> BuiltInStyle(std::string_view name);

/// Reads a built-in style, or the file of that name. Throws base::FileError.
void ReadNamedStyle(const std::string& nameOrFile, PrintStyle& style);

}  // namespace zerbal::print
