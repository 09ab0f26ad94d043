// The answers of the driver as JSON, and how an expectation is held against one.
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <string>

#include "data/reference_tables.h"
#include "map/recorder.h"

namespace zerbal::drive {

/// A single as the JSON number with the fewest digits that read back to the same single.
QJsonValue SingleValue(float value);
QJsonValue ColourValue(data::Rgb colour);
QJsonObject OperationValue(const map::Operation& operation);

/// One line of compact JSON.
std::string JsonLine(const QJsonObject& object);

/// Why `actual` does not hold everything that `expected` does; empty when it does. Objects are compared
/// member by member (others may be there), arrays element by element, numbers within 1e-6 relative.
QString Difference(const QJsonValue& expected, const QJsonValue& actual, const QString& where = "$");

}  // namespace zerbal::drive
