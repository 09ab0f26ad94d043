#include "json_values.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "support/test_random.h"

namespace zerbal::drive {
namespace {

QJsonObject Object(const char* json) {
  return QJsonDocument::fromJson(json).object();
}
bool Matches(const char* expected, const char* actual) {
  return Difference(Object(expected), Object(actual)).isEmpty();
}

TEST(Difference, AnObjectMayHaveMembersThatAreNotExpected) {
  EXPECT_TRUE(Matches(R"({"a":1})", R"({"a":1,"b":2})"));
  EXPECT_FALSE(Matches(R"({"a":1,"b":2})", R"({"a":1})"));
  EXPECT_TRUE(Matches(R"({"o":{"x":"y"}})", R"({"o":{"x":"y","z":null}})"));
}

TEST(Difference, ArraysAreComparedElementByElement) {
  EXPECT_TRUE(Matches(R"({"a":[1,2]})", R"({"a":[1,2]})"));
  EXPECT_FALSE(Matches(R"({"a":[1,2]})", R"({"a":[1,2,3]})"));
  EXPECT_FALSE(Matches(R"({"a":[1,2]})", R"({"a":[2,1]})"));
}

TEST(Difference, NumbersAgreeWithinAMillionthOfThemselves) {
  EXPECT_TRUE(Matches(R"({"a":1000000})", R"({"a":1000000.9})"));
  EXPECT_FALSE(Matches(R"({"a":1000000})", R"({"a":1000002})"));
  EXPECT_FALSE(Matches(R"({"a":0})", R"({"a":1e-9})"));
}

TEST(Difference, ValuesOfDifferentTypesDiffer) {
  EXPECT_FALSE(Matches(R"({"a":1})", R"({"a":"1"})"));
  EXPECT_FALSE(Matches(R"({"a":1})", R"({"a":true})"));
  EXPECT_FALSE(Matches(R"({"a":null})", R"({"a":0})"));
  EXPECT_TRUE(Matches(R"({"a":null})", R"({"a":null})"));
}

TEST(Difference, NamesThePathOfTheDifference) {
  EXPECT_EQ(Difference(Object(R"({"a":[{"b":1}]})"), Object(R"({"a":[{"b":2}]})")),
            "$.a[0].b: expected 1, is 2");
}

TEST(SingleValue, ReadsBackToTheSameSingleInItsShortestForm) {
  EXPECT_EQ(JsonLine({{"v", SingleValue(0.1F)}}), R"({"v":0.1})");
  EXPECT_EQ(JsonLine({{"v", SingleValue(34.285713F)}}), R"({"v":34.285713})");
  EXPECT_EQ(JsonLine({{"v", SingleValue(360)}}), R"({"v":360})");
  test::TestRandom random(1);
  std::uniform_real_distribution<float> values(-720, 720);
  for (int i = 0; i < 1000; ++i) {
    const float value = values(random);
    EXPECT_EQ(static_cast<float>(SingleValue(value).toDouble()), value);
  }
  EXPECT_TRUE(SingleValue(std::numeric_limits<float>::infinity()).isNull());
}

}  // namespace
}  // namespace zerbal::drive
