#include "zerbal-pack/ssim_leg.h"

#include <algorithm>
#include <functional>
#include <utility>

#include <fmt/format.h>

#include "zerbal-pack/csv_value.h"
#include "zerbal-pack/service_types.h"

namespace zerbal::pack {

namespace {

constexpr std::size_t kArrivalEnd = 57;  // the last column that a leg cannot do without

template <std::size_t N>
std::array<char, N> ToArray(std::string_view text) {
  std::array<char, N> array{};
  std::copy_n(text.begin(), N, array.begin());
  return array;
}

std::string WithoutBlanksAround(std::string_view text) {
  return std::string(Trimmed(text));
}

std::string WithoutZerosInFront(std::string_view number) {
  number = Trimmed(number);
  while (number.size() > 1 && number.front() == '0')
    number.remove_prefix(1);
  return std::string(number);
}

bool IsPrintable(std::string_view text) {
  return std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; });
}

class LegReader {
 public:
  LegReader(const SsimRecord& record, const SsimCarrier& carrier, const AirportTable& airports,
            std::vector<SsimFault>& faults)
      : record_(record), carrier_(carrier), airports_(airports), faults_(faults) {}

  SsimLegRead Read() {
    ReadIdentity();
    if (record_.LastColumn() < kArrivalEnd) {
      Fail(record_.LastColumn() + 1,
           fmt::format("the record ends at column {}, before the arrival station", record_.LastColumn()));
      return result_;
    }
    leg_.serviceType = record_.Column(14);
    if (!IsServiceType(leg_.serviceType))
      Warn(14, "unknown service type " + Quoted(record_.Columns(14, 14)));
    ReadPeriod();
    ReadDays();
    ReadFrequency();
    leg_.departure = ReadStation(37, "departure");
    leg_.arrival = ReadStation(55, "arrival");
    leg_.aircraft = ToArray<3>(record_.Columns(73, 75));
    leg_.onward = ToArray<8>(std::string(record_.Columns(138, 144)) + record_.Column(146));
    leg_.contents = std::hash<std::string_view>()(record_.Columns(2, 194));
    return result_;
  }

 private:
  void Fail(std::size_t column, std::string reason) {
    faults_.push_back({Severity::kError, column, std::move(reason)});
  }
  void Warn(std::size_t column, std::string reason) {
    faults_.push_back({Severity::kWarning, column, std::move(reason)});
  }

  void ReadIdentity() {
    const std::string airline = ReadAirline();
    const char suffix = ReadSuffix();
    const std::optional<int> number = ReadNumber(6, 9, "flight number");
    const std::optional<int> sequence = ReadNumber(12, 13, "leg sequence number");
    const std::optional<int> variation = ReadVariation();
    if (sequence && *sequence == 0)
      Fail(12, "leg sequence number 00; legs are counted from 01");
    result_.identified = number && variation && sequence && IsPrintable(airline) && IsPrintable({&suffix, 1});
    if (!result_.identified)
      return;
    leg_.id = SsimFlightId(airline, *number, suffix, *variation);
    leg_.sequence = static_cast<std::uint8_t>(*sequence);
  }

  std::string ReadAirline() {
    const std::string airline = WithoutBlanksAround(record_.Columns(3, 5));
    if (!IsPrintable(airline))
      Fail(3, fmt::format("airline designator {} is not made of letters and digits", Quoted(airline)));
    else if (airline != carrier_.airline && !carrier_.airline.empty())
      Warn(3, fmt::format("airline {} under the carrier record of {}", Quoted(airline),
                          Quoted(carrier_.airline)));
    return airline;
  }

  char ReadSuffix() {
    const char suffix = record_.Column(2);
    if (suffix < ' ' || suffix > '~')
      Fail(2, "the operational suffix is not a letter");
    else if (suffix != ' ' && (suffix < 'A' || suffix > 'Z'))
      Warn(2, fmt::format("the operational suffix {} is not a letter", Quoted(record_.Columns(2, 2))));
    return suffix;
  }

  std::optional<int> ReadNumber(std::size_t first, std::size_t last, std::string_view what) {
    const std::optional<int> number = ParseSsimNumber(record_.Columns(first, last));
    if (!number)
      Fail(first, fmt::format("{} {} is not made of digits", what, Quoted(record_.Columns(first, last))));
    return number;
  }

  std::optional<int> ReadVariation() {
    const std::optional<int> variation = ReadNumber(10, 11, "itinerary variation");
    const char overflow = record_.Column(128);
    if (overflow == ' ')
      return variation;
    if (overflow < '0' || overflow > '9') {
      Fail(128,
           fmt::format("itinerary variation overflow {} is not a digit", Quoted(record_.Columns(128, 128))));
      return std::nullopt;
    }
    return variation ? std::optional(*variation + (overflow - '0') * 100) : std::nullopt;
  }

  std::optional<SsimDate> ReadDate(std::size_t first) {
    const std::string_view text = record_.Columns(first, first + 6);
    const std::optional<SsimDate> date = ParseSsimDate(text);
    if (!date)
      Fail(first, fmt::format("there is no date {}", Quoted(text)));
    return date;
  }

  void ReadPeriod() {
    const std::optional<SsimDate> from = ReadDate(15);
    const std::optional<SsimDate> to = ReadDate(22);
    if (!from || !to)
      return;
    leg_.period = {from->open ? carrier_.validity.from : from->day,
                   to->open ? carrier_.validity.to : to->day};
    openEnd_ = from->open || to->open;
    if (!from->open && !to->open && leg_.period.Empty())
      Fail(15, fmt::format("the period begins on {} and ends before that, on {}", IsoDate(leg_.period.from),
                           IsoDate(leg_.period.to)));
    else if (Intersection(leg_.period, carrier_.validity).Empty())
      faults_.push_back({Severity::kNote, 15, "the period is outside of the schedule's validity"});
  }

  void ReadDays() {
    const std::string_view text = record_.Columns(29, 35);
    int last = 0;
    bool inOwnColumns = true;
    for (std::size_t i = 0; i < text.size(); ++i) {
      const char c = text[i];
      if (c == ' ' || c == '0' || c == '.')
        continue;
      if (c < '1' || c > '7')
        return Fail(29 + i, fmt::format("{} is not a day of the week (1 to 7)", Quoted({&text[i], 1})));
      const int day = c - '0';
      if (day <= last)
        return Fail(29 + i, fmt::format("the days of operation {} are not in ascending order", Quoted(text)));
      last = day;
      inOwnColumns = inOwnColumns && day == static_cast<int>(i) + 1;
      leg_.days = static_cast<Weekdays>(leg_.days | 1U << (day - 1));
    }
    if (leg_.days == 0)
      Fail(29, "there is no day of operation");
    else if (!inOwnColumns)
      Warn(29, fmt::format("the days of operation {} are not in their own columns", Quoted(text)));
  }

  void ReadFrequency() {
    const char rate = record_.Column(36);
    leg_.fortnightly = rate == '2';
    if (rate != ' ' && (rate < '0' || rate > '2'))
      Warn(36, fmt::format("unknown frequency rate {}; taken as weekly", Quoted(record_.Columns(36, 36))));
    if (!leg_.fortnightly)
      return;
    if (openEnd_)
      Warn(36, "every second week, but the period has an open end");
    else if (leg_.days != 0 && !leg_.period.Empty() &&
             !Leaves({leg_.period, leg_.days, false}, {leg_.period.from, leg_.period.from}, kEveryDay))
      Warn(36, "every second week, but the first date is not a day of operation");
  }

  AirportIndex ReadStation(std::size_t first, std::string_view what) {
    const std::string_view code = record_.Text(first, first + 2);
    const std::optional<AirportIndex> airport = airports_.Find(code);
    if (code.empty())
      Fail(first, fmt::format("there is no {} station", what));
    else if (!airport)
      Fail(first, "unknown airport " + Quoted(code));
    return airport.value_or(0);
  }

  const SsimRecord& record_;
  const SsimCarrier& carrier_;
  const AirportTable& airports_;
  std::vector<SsimFault>& faults_;
  SsimLegRead result_;
  SsimLeg& leg_ = result_.leg;
  bool openEnd_ = false;
};

}  // namespace

SsimFlightId::SsimFlightId(std::string_view airline, int number, char suffix, int variation) {
  for (std::size_t i = 0; i < 3; ++i)
    packed_ = packed_ << 8 | static_cast<std::uint8_t>(i < airline.size() ? airline[i] : ' ');
  packed_ = packed_ << 16 | static_cast<std::uint16_t>(number);
  packed_ = packed_ << 8 | static_cast<std::uint8_t>(suffix);
  packed_ = packed_ << 16 | static_cast<std::uint16_t>(variation);
}

std::string SsimFlightId::Airline() const {
  const char letters[] = {static_cast<char>(packed_ >> 56), static_cast<char>(packed_ >> 48),
                          static_cast<char>(packed_ >> 40)};
  return WithoutBlanksAround({letters, sizeof letters});
}

std::string SsimFlightId::Suffix() const {
  const char suffix = static_cast<char>(packed_ >> 16);
  return suffix == ' ' ? "" : std::string(1, suffix);
}

std::string SsimFlightId::Name() const {
  return Airline() + std::to_string(Number()) + Suffix();
}

std::string SsimLeg::Aircraft() const {
  return WithoutBlanksAround({aircraft.data(), aircraft.size()});
}

std::string SsimLeg::Onward() const {
  const std::string_view text(onward.data(), onward.size());
  return WithoutBlanksAround(text.substr(0, 3)) + WithoutZerosInFront(text.substr(3, 4)) +
         WithoutBlanksAround(text.substr(7));
}

SsimLegRead ReadSsimLeg(const SsimRecord& record, const SsimCarrier& carrier, const AirportTable& airports,
                        std::vector<SsimFault>& faults) {
  return LegReader(record, carrier, airports, faults).Read();
}

}  // namespace zerbal::pack
