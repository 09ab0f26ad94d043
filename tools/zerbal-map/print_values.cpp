#include "zerbal-map/print_values.h"

#include "print/graticule.h"
#include "zerbal-map/options.h"
#include "zerbal-map/values.h"

namespace zerbal::mapcommand {
namespace {

template <typename Value>
struct Choice {
  const char* name;
  Value value;
};

template <typename Value, std::size_t N>
Value Choose(const QString& text, const QString& option, const Choice<Value> (&choices)[N]) {
  QStringList names;
  for (const Choice<Value>& choice : choices) {
    if (text.compare(choice.name, Qt::CaseInsensitive) == 0)
      return choice.value;
    names.append(choice.name);
  }
  throw UsageError(QString("%1: there is no '%2'; possible are %3").arg(option, text, names.join(", ")));
}

}  // namespace

print::WantedPiece ParsePiece(const QString& text, const QString& option) {
  using print::Corner;
  constexpr Choice<std::optional<Corner>> kPlaces[] = {{"auto", std::nullopt},
                                                       {"top-left", Corner::kTopLeft},
                                                       {"top-right", Corner::kTopRight},
                                                       {"bottom-left", Corner::kBottomLeft},
                                                       {"bottom-right", Corner::kBottomRight}};
  return {true, Choose(text, option, kPlaces)};
}

print::ColourLegsBy ParseColourBy(const QString& text) {
  using print::ColourLegsBy;
  constexpr Choice<ColourLegsBy> kWays[] = {{"service", ColourLegsBy::kService},
                                            {"frequency", ColourLegsBy::kFrequency}};
  return Choose(text, "--color-by", kWays);
}

bool ParseWidthBy(const QString& text) {
  constexpr Choice<bool> kWays[] = {{"flights", true}};
  return Choose(text, "--width-by", kWays);
}

double ParseGraticule(const QString& text) {
  const double degrees = ParsePositive(text, "--graticule");
  if (degrees < print::kFinestGraticule || degrees > print::kWidestGraticule)
    throw UsageError(QString("--graticule: '%1' is not from %2 to %3 degrees")
                         .arg(text)
                         .arg(print::kFinestGraticule)
                         .arg(print::kWidestGraticule));
  return degrees;
}

std::string ParseTitle(const QString& text) {
  const QString title = text.simplified();
  if (title.isEmpty())
    throw UsageError("--title: the value is empty");
  return title.toStdString();
}

}  // namespace zerbal::mapcommand
