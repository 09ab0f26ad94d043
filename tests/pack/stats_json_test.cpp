// The figures of a schedule as a parser of JSON reads them.
#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "pack/plain_schedules.h"
#include "zerbal-pack/stats_report.h"

namespace zerbal::pack {
namespace {

using test::Count;
using test::FlightsOnTheEquator;
using test::kPositions;

/// The object that a JSON parser reads.
QJsonObject Parsed(const ScheduleFigures& figures) {
  std::ostringstream out;
  PrintFiguresAsJson(figures, out);
  QJsonParseError error;
  const QJsonObject object = QJsonDocument::fromJson(QByteArray::fromStdString(out.str()), &error).object();
  EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString() << "\n" << out.str();
  return object;
}

TEST(PrintFiguresAsJson, ContainsEveryFigure) {
  const QJsonObject object = Parsed(Count({{"X", "AB"}, {"X", "BC"}, {"X", "BAQ"}}));
  const QJsonObject all = object["all"].toObject();
  EXPECT_EQ(all["flights"].toInt(), 3);
  EXPECT_EQ(all["legs"].toInt(), 4);
  EXPECT_EQ(all["airports"].toInt(), 4);
  EXPECT_EQ(all["kilometres"].toDouble(), 3450.904);
  EXPECT_EQ(all["legsNotMeasured"].toInt(), 1);
  EXPECT_EQ(all["shortestLeg"].toObject(),
            (QJsonObject{{"from", "A"}, {"to", "B"}, {"flight", "N1"}, {"kilometres", 1113.195}}));
  EXPECT_EQ(all["busiestAirports"].toArray().size(), 4);
  EXPECT_EQ(all["busiestAirports"].toArray()[0].toObject(), (QJsonObject{{"airport", "A"}, {"legs", 3}}));
  EXPECT_EQ(all["busiestPairs"].toArray()[0].toObject(),
            (QJsonObject{{"airports", QJsonArray{"A", "B"}}, {"legs", 2}}));
  const QJsonArray services = object["services"].toArray();
  ASSERT_EQ(services.size(), 2);
  const QJsonObject first = services[0].toObject();
  EXPECT_EQ(first["service"].toString(), "Y");
  EXPECT_EQ(first["name"].toString(), "Why");
  EXPECT_EQ(first["flights"].toInt(-1), 0);
  EXPECT_TRUE(first["longestLeg"].isNull());
  EXPECT_TRUE(first["busiestPairs"].isArray());
  EXPECT_EQ(services[1].toObject()["legs"].toInt(), 4);
}

TEST(PrintFiguresAsJson, EscapesTexts) {
  const std::string odd = "a\"b\\c\n\t\x01\x7F/ Zürich €";
  PlainSchedule schedule = FlightsOnTheEquator({{"X", "AB"}});
  schedule.services = {{"X", odd, {}}};
  schedule.flights.front().number = odd;
  const QJsonObject object = Parsed(CountSchedule(schedule, kPositions));
  EXPECT_EQ(object["services"].toArray()[0].toObject()["name"].toString().toStdString(), odd);
  EXPECT_EQ(object["all"].toObject()["longestLeg"].toObject()["flight"].toString().toStdString(), odd);
}

TEST(PrintFiguresAsJson, IsValidWithoutFlightsAndServices) {
  const QJsonObject object = Parsed(CountSchedule(PlainSchedule{}, {}));
  EXPECT_EQ(object["all"].toObject()["flights"].toInt(-1), 0);
  EXPECT_TRUE(object["services"].isArray());
  EXPECT_TRUE(object["services"].toArray().isEmpty());
}

}  // namespace
}  // namespace zerbal::pack
