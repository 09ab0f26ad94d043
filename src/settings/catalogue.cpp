#include "settings/catalogue.h"

#include <algorithm>

#include "base/numbers.h"
#include "settings/profile_text.h"

namespace zerbal::settings {

bool SwitchSetting::ValueOf(std::string_view text) const {
  return text == TextOf(!otherwise) ? !otherwise : otherwise;
}

int NumberSetting::ValueOf(std::string_view text) const {
  const int number = base::LeadingInt32(text);
  const int nearest = std::clamp(number, least, most);
  if (correction == Correction::kNearest)
    return nearest;
  const bool isExact = correction != Correction::kExact || text == TextOf(number);
  return number == nearest && isExact ? number : byDefault;
}

double RealSetting::ValueOf(std::string_view text) const {
  return std::clamp(base::LeadingNumber(text), least, most);
}

std::string RealSetting::TextOf(double value) const {
  return base::DecimalText(value);
}

PairSetting::Value PairSetting::ValueOf(std::string_view text) const {
  const auto fields = SplitList(text, 2, ",");
  return {base::LeadingInt32(fields[1]), base::LeadingInt32(fields[2])};
}

std::string PairSetting::TextOf(const Value& value) const {
  return std::to_string(value.first) + "," + std::to_string(value.second);
}

}  // namespace zerbal::settings
