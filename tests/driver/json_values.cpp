#include "json_values.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace zerbal::drive {
namespace {

constexpr double kTolerance = 1e-6;

QString LayerName(map::Layer layer) {
  switch (layer) {
    case map::Layer::kBackground:
      return "background";
    case map::Layer::kCentre:
      return "centre";
    case map::Layer::kCoast:
      return "coast";
    case map::Layer::kRiver:
      return "river";
    case map::Layer::kBoundary:
      return "boundary";
    case map::Layer::kAirports:
      return "airports";
    case map::Layer::kDestinations:
      return "destinations";
    case map::Layer::kFlights:
      return "flights";
    case map::Layer::kZoomBox:
      return "zoombox";
  }
  return {};
}

void AddCorners(QJsonObject& object, const map::Operation& operation) {
  object["x1"] = operation.from.x;
  object["y1"] = operation.from.y;
  object["x2"] = operation.to.x;
  object["y2"] = operation.to.y;
  object["width"] = operation.pen.width;
  object["style"] = operation.pen.style == map::LineStyle::kDotted ? "dotted" : "solid";
  object["mode"] = operation.pen.mode == map::PenMode::kXor ? "xor" : "copy";
}

bool SameNumber(double a, double b) {
  return a == b || std::abs(a - b) <= kTolerance * std::max(std::abs(a), std::abs(b));
}

QString ToText(const QJsonValue& value) {
  const QByteArray wrapped = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
  return QString::fromUtf8(wrapped.mid(1, wrapped.size() - 2));
}

QString ArrayDifference(const QJsonArray& expected, const QJsonArray& actual, const QString& where) {
  if (expected.size() != actual.size())
    return QString("%1: expected %2 elements, there are %3")
        .arg(where)
        .arg(expected.size())
        .arg(actual.size());
  for (qsizetype i = 0; i < expected.size(); ++i) {
    QString found = Difference(expected[i], actual[i], QString("%1[%2]").arg(where).arg(i));
    if (!found.isEmpty())
      return found;
  }
  return {};
}

QString ObjectDifference(const QJsonObject& expected, const QJsonObject& actual, const QString& where) {
  for (auto member = expected.begin(); member != expected.end(); ++member) {
    const QString path = where + "." + member.key();
    if (!actual.contains(member.key()))
      return path + ": missing";
    QString found = Difference(member.value(), actual[member.key()], path);
    if (!found.isEmpty())
      return found;
  }
  return {};
}

}  // namespace

QJsonValue SingleValue(float value) {
  if (!std::isfinite(value))
    return QJsonValue::Null;
  // A double read from the shortest digits of the single has the same shortest digits.
  std::array<char, 64> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
  double read = 0;
  std::from_chars(digits.data(), end, read);
  return read;
}

QJsonValue ColourValue(data::Rgb colour) {
  return QJsonArray{colour.red, colour.green, colour.blue};
}

QJsonObject OperationValue(const map::Operation& operation) {
  using Kind = map::Operation::Kind;
  QJsonObject object{{"layer", LayerName(operation.layer)}, {"colour", ColourValue(operation.pen.colour)}};
  switch (operation.kind) {
    case Kind::kClear:
      object["op"] = "clear";
      break;
    case Kind::kLine:
      object["op"] = "line";
      AddCorners(object, operation);
      break;
    case Kind::kRectangle:
      object["op"] = "rect";
      AddCorners(object, operation);
      break;
    case Kind::kCircle:
      object["op"] = "circle";
      object["x"] = operation.from.x;
      object["y"] = operation.from.y;
      object["r"] = operation.radius;
      object["fill"] = operation.fill;
      break;
    case Kind::kText:
      object["op"] = "text";
      object["x"] = operation.from.x;
      object["y"] = operation.from.y;
      object["text"] = QString::fromStdString(operation.text);
      object["font"] = QString::fromStdString(operation.font.name);
      object["size"] = operation.font.size;
      break;
  }
  return object;
}

std::string JsonLine(const QJsonObject& object) {
  return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

QString Difference(const QJsonValue& expected, const QJsonValue& actual, const QString& where) {
  if (expected.type() != actual.type())
    return QString("%1: expected %2, is %3").arg(where, ToText(expected), ToText(actual));
  if (expected.isObject())
    return ObjectDifference(expected.toObject(), actual.toObject(), where);
  if (expected.isArray())
    return ArrayDifference(expected.toArray(), actual.toArray(), where);
  const bool same =
      expected.isDouble() ? SameNumber(expected.toDouble(), actual.toDouble()) : expected == actual;
  return same ? QString() : QString("%1: expected %2, is %3").arg(where, ToText(expected), ToText(actual));
}

}  // namespace zerbal::drive
