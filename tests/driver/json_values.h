// JSON of the driver's answers, and the comparison of an answer with an expectation.
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <string>

#include "data/rgb.h"
#include "map/recorder.h"

namespace zerbal::drive {

/// The JSON number with the fewest digits that reads back to the same single; null when `value` is not
/// finite.
QJsonValue SingleValue(float value);
QJsonValue ColourValue(data::Rgb colour);
QJsonObject OperationValue(const map::Operation& operation);

/// One line of compact JSON.
std::string JsonLine(const QJsonObject& object);

/// The first difference between `expected` and `actual`, which is at the path `where`; empty when they agree.
/// Compares objects by the members of `expected`, arrays element by element, numbers within 1e-6 relative.
QString Difference(const QJsonValue& expected, const QJsonValue& actual, const QString& where = "$");

}  // namespace zerbal::drive
