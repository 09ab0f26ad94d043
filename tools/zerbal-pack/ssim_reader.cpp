#include "zerbal-pack/ssim_reader.h"

#include <algorithm>
#include <memory>
#include <sstream>
#include <string_view>
#include <system_error>
#include <utility>

#include <fmt/format.h>

#include "zerbal-pack/csv_value.h"
#include "zerbal-pack/line_reader.h"
#include "zerbal-pack/ssim_flights.h"
#include "zerbal-pack/ssim_record.h"

namespace zerbal::pack {

namespace {

constexpr std::string_view kHeader = "1AIRLINE STANDARD SCHEDULE DATA SET";
constexpr int kLastSerial = 999'999;

/// The record serial numbers, which count all records. Blank ones are counted.
class SerialNumbers {
 public:
  /// The fault of the next record's number; empty when there is none.
  std::string Next(const SsimRecord& record) {
    const int expected = Expected();
    last_ = expected;
    if (record.Text(195, 200).empty())
      return "";
    const std::optional<int> number = ParseSsimNumber(record.Columns(195, 200));
    if (!number)
      return fmt::format("record serial number {} is not made of digits", Quoted(record.Columns(195, 200)));
    last_ = *number;
    return *number == expected ? ""
                               : fmt::format("record serial number {:06}, expected {:06}", *number, expected);
  }
  /// For a line that is no record of the data set unless its number says so.
  void NextIfCounted(const SsimRecord& record) {
    if (ParseSsimNumber(record.Columns(195, 200)) == Expected())
      last_ = Expected();
  }
  int Last() const { return last_; }

 private:
  int Expected() const { return last_ == kLastSerial ? 2 : last_ + 1; }  // 000001 belongs to the header

  int last_ = 0;
};

class FileReader {
 public:
  /// `size` of the file in bytes.
  FileReader(LineReader lines, std::uintmax_t size, std::string file, const AirportTable& airports,
             Problems& problems)
      : lines_(std::move(lines)), file_(std::move(file)), airports_(airports), problems_(problems) {
    schedule_.legs.reserve(std::min<std::uintmax_t>(size / (SsimRecord::kColumns + 1), kMostReserved));
  }

  SsimSchedule Read() {
    std::string_view line;
    while (lines_.Next(line)) {
      if (IsPadding(line))
        continue;
      record_.Assign(line);
      if (!headerSeen_ && !ReadHeader())
        return {};
      ReadRecord();
    }
    if (!lines_.Good())
      problems_.Add({file_, 0, "", "cannot be read"});
    else
      CheckEnd();
    JoinSsimLegs(schedule_, bad_, airports_, file_, problems_);
    std::ranges::stable_sort(schedule_.leftOut, {}, &LeftOut::line);
    return std::move(schedule_);
  }

 private:
  static constexpr std::size_t kMostReserved = 4'000'000;

  void Report(Severity severity, std::size_t column, std::string reason) {
    problems_.Add({file_, lines_.Number(), "", std::move(reason), severity, column});
  }

  bool ReadHeader() {
    headerSeen_ = record_.Columns(1, kHeader.size()) == kHeader;
    if (!headerSeen_)
      Report(Severity::kError, 1,
             fmt::format("is no schedule data set: it does not begin with '{}'", kHeader));
    return headerSeen_;
  }

  void ReadRecord() {
    const char type = record_.Type();
    if (type < '1' || type > '5') {
      Report(Severity::kWarning, 1,
             fmt::format("unknown record type {}; skipped", Quoted(record_.Columns(1, 1))));
      return serials_.NextIfCounted(record_);
    }
    CheckForm();
    const int before = serials_.Last();
    if (std::string fault = serials_.Next(record_); !fault.empty())
      Report(Severity::kWarning, 195, std::move(fault));
    lastType_ = type;
    if (type == '2')
      ReadCarrier();
    else if (type == '3')
      ReadLeg();
    else if (type == '5')
      ReadTrailer(before);
  }

  void CheckForm() {
    if (record_.FirstTab() != 0)
      Report(Severity::kWarning, record_.FirstTab(), "a tab, read as one blank");
    if (record_.LastColumn() > SsimRecord::kColumns)
      Report(Severity::kWarning, SsimRecord::kColumns + 1,
             fmt::format("the record has {} columns; those after 200 are ignored", record_.LastColumn()));
  }

  void ReadCarrier() {
    carrier_ = {std::string(record_.Text(3, 5)), {}};
    const auto end = [this](std::size_t first, Day open) {
      const std::string_view text = record_.Columns(first, first + 6);
      const std::optional<SsimDate> date = ParseSsimDate(text);
      if (!date && !record_.Text(first, first + 6).empty())
        Report(Severity::kError, first,
               fmt::format("there is no date {} in the schedule's validity", Quoted(text)));
      return date && !date->open ? date->day : open;
    };
    carrier_.validity = {end(15, kFirstDay), end(22, kLastDay)};
    if (carrier_.validity.Empty()) {
      Report(Severity::kError, 15, "the schedule's validity begins after its end");
      carrier_.validity = {};
    }
  }

  void ReadLeg() {
    faults_.clear();
    const auto line = static_cast<std::uint32_t>(lines_.Number());
    SsimLegRead read = ReadSsimLeg(record_, carrier_, airports_, faults_);
    read.leg.line = line;
    std::string reason;
    for (SsimFault& fault : faults_) {
      if (fault.severity == Severity::kError)
        reason.append(reason.empty() ? "" : "; ").append(fault.reason);
      Report(fault.severity, fault.column, std::move(fault.reason));
    }
    if (!reason.empty()) {
      schedule_.leftOut.push_back({line, std::move(reason), ""});
      LeaveOutFlight(read, line);
    } else {
      schedule_.legs.push_back(read.leg);
    }
    before_ = read;
  }

  /// A record whose flight cannot be told continues the flight of the leg before it, if any.
  void LeaveOutFlight(const SsimLegRead& read, std::uint32_t line) {
    if (read.identified)
      bad_.Add(read.leg.id, line);
    else if (before_.identified && ParseSsimNumber(record_.Columns(12, 13)) == before_.leg.sequence + 1)
      bad_.Add(before_.leg.id, line);
  }

  void ReadTrailer(int serialBefore) {
    trailerContinues_ = record_.Column(194) == 'C';
    if (record_.Text(188, 193).empty())
      return;
    const std::optional<int> reference = ParseSsimNumber(record_.Columns(188, 193));
    if (reference != serialBefore)
      Report(Severity::kWarning, 188,
             fmt::format("serial number check reference {}, but the record before is {:06}",
                         Quoted(record_.Columns(188, 193)), serialBefore));
  }

  void CheckEnd() {
    if (!headerSeen_)
      return problems_.Add({file_, 0, "", "is empty"});
    if (lastType_ != '5')
      Report(Severity::kWarning, 0, "the data set ends without a trailer; it may be truncated");
    else if (trailerContinues_)
      Report(Severity::kWarning, 194, "the data set ends, but its trailer says that another carrier follows");
  }

  LineReader lines_;
  std::string file_;
  const AirportTable& airports_;
  Problems& problems_;
  SsimRecord record_;
  SerialNumbers serials_;
  SsimCarrier carrier_;
  SsimLegRead before_;  // the leg record before the current one
  std::vector<SsimFault> faults_;
  SsimBadFlights bad_;
  SsimSchedule schedule_;
  bool headerSeen_ = false;
  bool trailerContinues_ = false;
  char lastType_ = ' ';
};

}  // namespace

SsimSchedule ReadSsim(const std::filesystem::path& file, const AirportTable& airports, Problems& problems) {
  std::error_code failed;
  const std::uintmax_t size = std::filesystem::file_size(file, failed);
  return FileReader(LineReader(file), failed ? 0 : size, file.string(), airports, problems).Read();
}

SsimSchedule ParseSsim(std::string text, std::string name, const AirportTable& airports, Problems& problems) {
  const std::size_t size = text.size();
  return FileReader(LineReader(std::make_unique<std::istringstream>(std::move(text))), size, std::move(name),
                    airports, problems)
      .Read();
}

}  // namespace zerbal::pack
