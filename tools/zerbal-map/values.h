// The text forms of single values on the command line.
#pragma once

#include <QSizeF>
#include <QString>

#include "data/airport_criteria.h"

namespace zerbal::mapcommand {

/// "12.5", "-12.5", "12.5W", "s33": degrees, east and north positive. Letters may be upper or lower case,
/// before or after the number; a letter of the other axis is refused. Throws UsageError naming `option`.
double ParseLongitude(const QString& text, const QString& option);
double ParseLatitude(const QString& text, const QString& option);

/// A number greater than 0. Throws UsageError.
double ParsePositive(const QString& text, const QString& option);

/// "A-B" between, "N+" at least, "N-" at most, "N" exactly. Throws UsageError.
data::NumericCriterion ParseLimit(const QString& text, const QString& option);

/// The sizes of a standard paper in inches, wider than high. Throws UsageError, which names the known papers.
QSizeF ParsePaper(const QString& text);

}  // namespace zerbal::mapcommand
