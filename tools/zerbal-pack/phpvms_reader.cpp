#include "zerbal-pack/phpvms_reader.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <fmt/format.h>

#include "base/case_folding.h"
#include "zerbal-pack/csv_file.h"
#include "zerbal-pack/csv_value.h"
#include "zerbal-pack/phpvms_columns.h"
#include "zerbal-pack/phpvms_legs.h"
#include "zerbal-pack/service_types.h"

namespace zerbal::pack {

namespace {

constexpr CsvForm kPhpVmsForm{.backslashEscapes = true, .lenient = true};
constexpr std::size_t kLongestPhpVmsName = 20;  // characters of a flight in the database

bool IsDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Reads the rows; the caller joins legs.
class RowReader {
 public:
  RowReader(CsvFile& file, const AirportTable& airports, PhpVmsLegs& legs, PhpVmsSchedule& schedule,
            Problems& problems)
      : file_(file), airports_(airports), legs_(legs), schedule_(schedule), problems_(problems) {}

  void Read() {
    if (!file_.Next(record_))
      return;
    columns_ = FindPhpVmsColumns(record_);
    if (!CheckColumns())
      return;
    if (!columns_.hasHeader)
      file_.Rewind();
    while (file_.Next(record_))
      ReadRow();
  }

 private:
  void Report(Severity severity, const char* column, std::string reason) {
    if (severity == Severity::kError)
      fault_.append(fault_.empty() ? "" : "; ").append(reason);
    problems_.Add({file_.Name(), record_.line, column, std::move(reason), severity});
  }

  bool CheckColumns() {
    if (columns_.version == 0)
      Report(Severity::kError, "",
             "is no list of flights of phpVMS: neither 'dpt_airport' nor 'depicao' is a column");
    for (const auto& [name, column] : {std::pair("airline", columns_.airline),
                                       {"flight_number", columns_.number},
                                       {"dpt_airport", columns_.departure},
                                       {"arr_airport", columns_.arrival}}) {
      if (columns_.version == 7 && !column)
        Report(Severity::kError, "", fmt::format("there is no column '{}'", name));
    }
    return fault_.empty();
  }

  void ReadRow() {
    fault_.clear();
    PhpVmsFlight flight;
    flight.line = record_.line;
    if (record_.fault) {
      fault_ = record_.fault->reason;
      problems_.Add({file_.Name(), record_.fault->line, std::to_string(record_.fault->field), fault_});
    } else if (columns_.most > 0 && record_.fields.size() > columns_.most) {
      Report(Severity::kError, "",
             fmt::format("has {} fields; there are at most {}", record_.fields.size(), columns_.most));
    } else if (columns_.version == 7 && columns_.active.value_or(0) >= record_.fields.size()) {
      Report(
          Severity::kError, "",
          fmt::format("has {} fields and ends before it says whether it is active", record_.fields.size()));
    } else if (!IsActive()) {
      return Report(Severity::kNote, "", "is not active; left out");
    } else {
      ReadValues(flight);
    }
    if (fault_.empty())
      return legs_.Add(std::move(flight), std::string(record_.source));
    schedule_.leftOut.push_back({record_.line, fault_, std::string(record_.source)});
    legs_.AddBad(flight);
  }

  bool IsActive() const {
    const std::string text = base::LowerAscii(FieldText(record_, columns_.active));
    if (!columns_.active)
      return true;
    if (columns_.version == 5)
      return text != "0";
    return text == "1" || text == "yes" || text == "y" || text == "on" || text == "true";
  }

  void ReadValues(PhpVmsFlight& flight) {
    flight.airline = UpperAscii(FieldText(record_, columns_.airline));
    if (flight.airline.empty())
      Report(Severity::kError, Title("airline", "code"), "is empty");
    ReadNumber(flight);
    flight.routeCode = UpperAscii(FieldText(record_, columns_.routeCode));
    flight.routeLeg = FieldText(record_, columns_.routeLeg);
    const AirportIndex departure = ReadAirport(columns_.departure, Title("dpt_airport", "depicao"));
    const AirportIndex arrival = ReadAirport(columns_.arrival, Title("arr_airport", "arricao"));
    flight.route = {departure, arrival};
    if (fault_.empty() && departure == arrival)
      Report(Severity::kError, Title("arr_airport", "arricao"), "is the airport of the departure");
    columns_.version == 5 ? ReadDays5(flight) : ReadDays7(flight);
    ReadPeriod(flight);
    ReadType(flight);
    const std::string_view aircraft = FieldText(record_, columns_.aircraft);
    flight.aircraft = Trimmed(aircraft.substr(0, aircraft.find(';')));
    const std::string name = flight.Name();
    if (fault_.empty() && (name.size() > kLongestPhpVmsName ||
                           std::ranges::any_of(name, [](char c) { return c <= ' ' || c > '~'; })))
      Report(Severity::kError, "",
             fmt::format("the flight's name {} is not made of at most {} letters, digits and signs",
                         Quoted(name), kLongestPhpVmsName));
  }

  /// The name of a column in the file's version.
  const char* Title(const char* seven, const char* five) const {
    return columns_.version == 5 ? five : seven;
  }

  void ReadNumber(PhpVmsFlight& flight) {
    const char* title = Title("flight_number", "flightnum");
    const std::string_view text = FieldText(record_, columns_.number);
    const std::optional<int> number = IsDigits(text) ? WholeNumber(text) : std::nullopt;
    if (text.empty())
      Report(Severity::kError, title, "is empty");
    else if (!number)
      Report(Severity::kError, title, Quoted(text) + " is not made of digits");
    flight.number = number.value_or(0);
  }

  AirportIndex ReadAirport(PhpVmsColumns::Column column, const char* title) {
    const std::string_view code = FieldText(record_, column);
    const std::optional<AirportIndex> airport = airports_.Find(code);
    if (code.empty())
      Report(Severity::kError, title, "is empty");
    else if (!airport)
      Report(Severity::kError, title, "unknown airport " + Quoted(code));
    return airport.value_or(0);
  }

  void ReadDays7(PhpVmsFlight& flight) {
    const std::string_view text = FieldText(record_, columns_.days);
    Weekdays days = 0;
    for (const char c : text == "0" ? std::string_view() : text) {
      if (c >= '1' && c <= '7')
        days = static_cast<Weekdays>(days | 1U << (c - '1'));
      else if (c >= '0' && c <= '9')
        return Report(Severity::kError, "days", Quoted(text) + " has a day other than 1 to 7");
    }
    if (days == 0 && !text.empty() && text != "0")
      Report(Severity::kNote, "days", Quoted(text) + " has no digit; taken as every day");
    flight.operation.days = days == 0 ? kEveryDay : days;
  }

  void ReadDays5(PhpVmsFlight& flight) {
    const std::string_view text = FieldText(record_, columns_.days);
    Weekdays days = 0;
    for (const char c : text) {
      if (c < '0' || c > '7')
        return Report(Severity::kError, "daysofweek", Quoted(text) + " has a day other than 0 to 7");
      const int sunday = 6;
      days = static_cast<Weekdays>(days | 1U << (c == '0' ? sunday : c - '1'));
    }
    flight.operation.days = days == 0 ? kEveryDay : days;
  }

  std::optional<Day> ReadDate(PhpVmsColumns::Column column, const char* title) {
    const std::string_view text = FieldText(record_, column);
    const std::optional<Day> day = ParseIsoDate(text);
    if (!text.empty() && !day)
      Report(Severity::kError, title, fmt::format("there is no date {}", Quoted(text)));
    return day;
  }

  void ReadPeriod(PhpVmsFlight& flight) {
    const std::optional<Day> start = ReadDate(columns_.start, "start_date");
    const std::optional<Day> end = ReadDate(columns_.end, "end_date");
    if (!start || !end)
      return;
    flight.operation.period = {*start, *end};
    if (*start > *end)
      Report(Severity::kError, "start_date",
             fmt::format("{} is after the end, {}", IsoDate(*start), IsoDate(*end)));
  }

  void ReadType(PhpVmsFlight& flight) {
    const std::string text = UpperAscii(FieldText(record_, columns_.type));
    const std::string_view name = columns_.version == 5 ? PhpVms5TypeName(text)
                                  : text.size() == 1    ? PhpVms7TypeName(text[0])
                                                        : "";
    if (!name.empty()) {
      flight.type = text.empty() ? 'P' : text[0];
      flight.typeName = name;
      return;
    }
    flight.type = columns_.version == 5 ? 'P' : 'J';
    flight.typeName = columns_.version == 5 ? PhpVms5TypeName("P") : PhpVms7TypeName('J');
    Report(Severity::kWarning, Title("flight_type", "flighttype"),
           fmt::format("unknown flight type {}; taken as {}", Quoted(text), flight.type));
  }

  CsvFile& file_;
  const AirportTable& airports_;
  PhpVmsLegs& legs_;
  PhpVmsSchedule& schedule_;
  Problems& problems_;
  CsvRecord record_;
  PhpVmsColumns columns_;
  std::string fault_;  // of the row
};

PhpVmsSchedule ReadRows(CsvFile&& file, const AirportTable& airports, Problems& problems) {
  PhpVmsSchedule schedule;
  PhpVmsLegs legs(file.Name(), problems);
  RowReader(file, airports, legs, schedule, problems).Read();
  legs.Join(schedule);
  std::ranges::stable_sort(schedule.leftOut, {}, &LeftOut::line);
  return schedule;
}

}  // namespace

std::string PhpVmsFlight::Name() const {
  return airline + std::to_string(number) + (routeCode.empty() ? "" : "/" + routeCode);
}

PhpVmsSchedule ReadPhpVms(const std::filesystem::path& file, const AirportTable& airports,
                          Problems& problems) {
  return ReadRows(CsvFile(file, kPhpVmsForm, problems), airports, problems);
}

PhpVmsSchedule ParsePhpVms(std::string bytes, std::string name, const AirportTable& airports,
                           Problems& problems) {
  return ReadRows(CsvFile(std::move(bytes), std::move(name), kPhpVmsForm, problems), airports, problems);
}

}  // namespace zerbal::pack
