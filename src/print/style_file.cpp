#include "print/style_file.h"

#include <array>
#include <charconv>
#include <set>
#include <utility>
#include <vector>

#include "base/case_folding.h"
#include "base/error.h"
#include "base/file_replacement.h"
#include "base/utf8.h"
#include "settings/profile_text.h"

namespace zerbal::print {
namespace {

using data::Rgb;

constexpr std::size_t kLargestFile = 1 << 20;
constexpr double kMostWidth = 50;
constexpr int kSmallestFont = 4;
constexpr int kLargestFont = 96;

template <typename Value>
struct Key {
  const char* name;
  void (*set)(PrintStyle& style, const Value& value);
};

template <auto Member, typename Value>
void Set(PrintStyle& style, const Value& value) {
  style.*Member = value;
}
template <auto Member, std::size_t Part, typename Value>
void SetPart(PrintStyle& style, const Value& value) {
  (style.*Member)[Part] = value;
}

constexpr Key<Rgb> kColours[] = {{"Background", Set<&PrintStyle::background>},
                                 {"Land", Set<&PrintStyle::land>},
                                 {"Water", Set<&PrintStyle::water>},
                                 {"Coast", Set<&PrintStyle::coast>},
                                 {"River", Set<&PrintStyle::river>},
                                 {"Boundary", Set<&PrintStyle::boundary>},
                                 {"Centre", Set<&PrintStyle::centre>},
                                 {"Airport", Set<&PrintStyle::airport>},
                                 {"Destination", Set<&PrintStyle::destination>},
                                 {"AircraftSymbol", Set<&PrintStyle::symbol>},
                                 {"Graticule", Set<&PrintStyle::graticule>},
                                 {"Frequency1", SetPart<&PrintStyle::frequency, 0>},
                                 {"Frequency2", SetPart<&PrintStyle::frequency, 1>},
                                 {"Frequency3", SetPart<&PrintStyle::frequency, 2>},
                                 {"Frequency4", SetPart<&PrintStyle::frequency, 3>},
                                 {"Text", Set<&PrintStyle::text>},
                                 {"Box", Set<&PrintStyle::box>},
                                 {"Frame", Set<&PrintStyle::frame>}};
constexpr Key<double> kWidths[] = {{"Coast", Set<&PrintStyle::coastWidth>},
                                   {"River", Set<&PrintStyle::riverWidth>},
                                   {"Boundary", Set<&PrintStyle::boundaryWidth>},
                                   {"Graticule", Set<&PrintStyle::graticuleWidth>},
                                   {"Flight", Set<&PrintStyle::flightWidth>},
                                   {"Flights1", SetPart<&PrintStyle::flightWidths, 0>},
                                   {"Flights2", SetPart<&PrintStyle::flightWidths, 1>},
                                   {"Flights3", SetPart<&PrintStyle::flightWidths, 2>},
                                   {"Flights4", SetPart<&PrintStyle::flightWidths, 3>},
                                   {"Airport", Set<&PrintStyle::airportWidth>},
                                   {"Frame", Set<&PrintStyle::frameWidth>}};
constexpr Key<map::TextFont> kFonts[] = {{"Label", Set<&PrintStyle::label>},
                                         {"Legend", Set<&PrintStyle::legend>},
                                         {"Title", Set<&PrintStyle::title>}};
constexpr Key<double> kContrasts[] = {{"Flights", Set<&PrintStyle::contrast>}};

constexpr char kDark[] = R"([Colors]
Background=16,20,28
Land=30,36,46
Coast=74,86,104
River=44,64,92
Boundary=92,78,84
Centre=120,130,145
Airport=120,130,145
Destination=235,238,242
AircraftSymbol=235,238,242
Graticule=44,52,66
Frequency1=66,92,140
Frequency2=86,146,196
Frequency3=246,190,92
Frequency4=255,240,200
Text=225,230,238
Box=24,29,39
Frame=74,86,104
[Contrast]
Flights=4
[Widths]
Graticule=0.5
)";

constexpr char kPrint[] = R"([Colors]
Background=255,255,255
Land=246,243,236
Coast=140,150,160
River=160,195,220
Boundary=190,170,165
Centre=110,110,110
Airport=110,110,110
Destination=25,25,25
AircraftSymbol=25,25,25
Graticule=205,212,218
Frequency1=130,175,215
Frequency2=50,125,190
Frequency3=200,90,40
Frequency4=120,10,30
Text=20,20,20
Box=255,255,255
Frame=120,120,120
[Contrast]
Flights=3
[Widths]
Coast=0.75
River=0.5
Boundary=0.75
Graticule=0.5
)";

/// Refuses a line of the file.
class Refuse {
 public:
  Refuse(const std::string& file, int line) : file_(file), line_(line) {}
  [[noreturn]] void operator()(const std::string& reason) const {
    throw base::FileError(file_, "line " + std::to_string(line_) + ": " + reason);
  }

 private:
  const std::string& file_;
  int line_;
};

std::string Quoted(std::string_view text) {
  constexpr std::size_t kMost = 60;
  std::string quoted = "'";
  quoted += text.substr(0, kMost);
  quoted += text.size() > kMost ? "...'" : "'";
  return quoted;
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  return first == std::string_view::npos ? std::string_view()
                                         : text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

/// The whole text is a number in the range. Not-a-number is in no range.
template <typename Number, typename... Format>
std::optional<Number> NumberIn(std::string_view text, Number least, Number most, Format... format) {
  text = Trimmed(text);
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, format...);
  if (error != std::errc() || end != text.data() + text.size() || !(number >= least && number <= most))
    return std::nullopt;
  return number;
}

std::optional<Rgb> ParseColour(std::string_view text) {
  std::array<unsigned, 3> parts{};
  const bool hexadecimal = text.size() == 7 && text.front() == '#';
  const auto fields = settings::SplitList(text, 4, ",");
  if (!hexadecimal && !fields[4].empty())
    return std::nullopt;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const auto part = hexadecimal ? NumberIn<unsigned>(text.substr(1 + 2 * i, 2), 0U, 255U, 16)
                                  : NumberIn<unsigned>(fields[i + 1], 0U, 255U, 10);
    if (!part)
      return std::nullopt;
    parts[i] = *part;
  }
  const auto component = [&](std::size_t i) { return static_cast<std::uint8_t>(parts[i]); };
  return Rgb{component(0), component(1), component(2)};
}

std::optional<map::TextFont> ParseFont(std::string_view text) {
  const std::size_t comma = text.rfind(',');
  if (comma == std::string_view::npos)
    return std::nullopt;
  const std::string_view name = Trimmed(text.substr(0, comma));
  const auto size = NumberIn<int>(text.substr(comma + 1), kSmallestFont, kLargestFont, 10);
  if (name.empty() || !size || !base::IsUtf8(name))
    return std::nullopt;
  return map::TextFont{.name = std::string(name), .size = *size};
}

Rgb ColourOf(std::string_view text, const Refuse& refuse) {
  if (const auto colour = ParseColour(text))
    return *colour;
  refuse(Quoted(text) + " is no colour; possible are 'red,green,blue', each from 0 to 255, and '#rrggbb'");
}

double NumberOf(std::string_view text, double least, double most, const Refuse& refuse) {
  if (const auto number = NumberIn<double>(text, least, most, std::chars_format::fixed))
    return *number;
  refuse(Quoted(text) + " is not a number from " + std::to_string(static_cast<int>(least)) + " to " +
         std::to_string(static_cast<int>(most)));
}

map::TextFont FontOf(std::string_view text, const Refuse& refuse) {
  if (const auto font = ParseFont(text))
    return *font;
  refuse(Quoted(text) + " is no font; possible is 'name,size' with a size from " +
         std::to_string(kSmallestFont) + " to " + std::to_string(kLargestFont));
}

template <typename Value, std::size_t N>
const Key<Value>& FindKey(const Key<Value> (&keys)[N], const settings::ProfileLine& line,
                          const Refuse& refuse) {
  std::string known;
  for (const Key<Value>& key : keys) {
    if (base::EqualsIgnoringAsciiCase(key.name, line.key))
      return key;
    known += (known.empty() ? "" : ", ") + std::string(key.name);
  }
  refuse("section [" + std::string(line.section) + "] has no " + Quoted(line.key) + "; possible are " +
         known);
}

void ApplyLine(const settings::ProfileLine& line, const Refuse& refuse, PrintStyle& style) {
  const auto isSection = [&](const char* name) { return base::EqualsIgnoringAsciiCase(line.section, name); };
  if (line.key.empty())
    refuse("this is neither a section nor 'key=value'");
  else if (isSection("Colors"))
    FindKey(kColours, line, refuse).set(style, ColourOf(line.value, refuse));
  else if (isSection("FlightColors"))
    style.services[base::LowerAscii(line.key)] = ColourOf(line.value, refuse);
  else if (isSection("Contrast"))
    FindKey(kContrasts, line, refuse).set(style, NumberOf(line.value, 1, 21, refuse));
  else if (isSection("Widths"))
    FindKey(kWidths, line, refuse).set(style, NumberOf(line.value, 0, kMostWidth, refuse));
  else if (isSection("Fonts"))
    FindKey(kFonts, line, refuse).set(style, FontOf(line.value, refuse));
  else
    refuse("there is no section " + Quoted(line.section) +
           "; possible are Colors, FlightColors, Contrast, Widths and Fonts");
}

void RefuseRepeated(const std::vector<settings::ProfileLine>& lines, const std::string& file) {
  std::set<std::pair<std::string, std::string>> seen;
  for (const settings::ProfileLine& line : lines)
    if (!seen.emplace(base::LowerAscii(line.section), base::LowerAscii(line.key)).second)
      Refuse(file, line.number)(Quoted(line.key) + " is given twice");
}

}  // namespace

void ReadStyle(std::string_view text, const std::string& file, PrintStyle& style) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark)
    text.remove_prefix(kByteOrderMark.size());
  const std::vector<settings::ProfileLine> lines = settings::ProfileLines(text);
  const auto apply = [&] {
    for (const settings::ProfileLine& line : lines)
      ApplyLine(line, Refuse(file, line.number), style);
  };
  apply();
  RefuseRepeated(lines, file);
  // Once more, because the colours that depend on the background can be in the file themselves.
  DeriveColours(style);
  apply();
}

std::optional<std::string_view> BuiltInStyle(std::string_view name) {
  if (name == "dark")
    return kDark;
  if (name == "print")
    return kPrint;
  return std::nullopt;
}

void ReadNamedStyle(const std::string& nameOrFile, PrintStyle& style) {
  if (const auto text = BuiltInStyle(nameOrFile)) {
    ReadStyle(*text, nameOrFile, style);
    return;
  }
  const std::optional<std::string> bytes = base::ReadFile(nameOrFile);
  if (!bytes)
    throw base::FileError(nameOrFile, "it cannot be read; a style is dark, print or such a file");
  if (bytes->size() > kLargestFile)
    throw base::FileError(nameOrFile, "it is too large for a style");
  ReadStyle(*bytes, nameOrFile, style);
}

}  // namespace zerbal::print
