// The text forms of the options for print.
#pragma once

#include <QString>

#include "print/print_map.h"

namespace zerbal::mapcommand {

// Each throws UsageError naming the option.

/// "auto" is the emptiest corner.
print::WantedPiece ParsePiece(const QString& text, const QString& option);
print::ColourLegsBy ParseColourBy(const QString& text);
/// "flights", which is all there is.
bool ParseWidthBy(const QString& text);
/// Degrees.
double ParseGraticule(const QString& text);
/// One line.
std::string ParseTitle(const QString& text);

}  // namespace zerbal::mapcommand
