// The catalogue of all settings: section, key, type, default and range of each. No other file names a section
// or a key. IniFile reads and writes these settings; a missing key is written with its default.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace zerbal::settings {

struct SettingKey {
  const char* section;
  const char* name;
};

/// "1" or "0".
struct SwitchSetting {
  using Value = bool;
  SettingKey key;
  bool byDefault;
  bool otherwise = false;  ///< the value of any other text, and when the default cannot be written

  bool ValueOf(std::string_view text) const;
  std::string TextOf(bool value) const { return value ? "1" : "0"; }
};

/// What a number outside the range becomes.
enum class Correction {
  kNearest,  ///< the nearest number in the range
  kDefault,  ///< the default
  kExact     ///< the default, and so does a text that is anything but the number
};

/// A whole number: what the text begins with, rounded; 0 when that is no number.
struct NumberSetting {
  using Value = int;
  SettingKey key;
  int byDefault;
  int least;
  int most;
  Correction correction;

  int ValueOf(std::string_view text) const;
  std::string TextOf(int value) const { return std::to_string(value); }
};

/// A number: what the text begins with, 0 when that is no number; brought into the range.
struct RealSetting {
  using Value = double;
  SettingKey key;
  double byDefault;
  double least;
  double most;

  double ValueOf(std::string_view text) const;
  std::string TextOf(double value) const;
};

/// "first,second": two whole numbers of 32 bits. The reader knows the default; there is no other limit.
struct PairSetting {
  using Value = std::pair<int, int>;
  SettingKey key;

  Value ValueOf(std::string_view text) const;
  std::string TextOf(const Value& value) const;
};

/// The settings of a section whose values are texts. The keys come from the databases or are listed below.
struct SettingFamily {
  const char* section;
};

// The first picture.
/// Seconds. Start-up reads it without writing the default; the main window writes it.
inline constexpr NumberSetting kSplashSeconds{
    {"SplashWindow", "SecondsToShow"}, 2, 0, 32767, Correction::kNearest};

// The main window. Read even when they are not to be restored.
inline constexpr char kMainWindow[] = "MainWindow";
inline constexpr SwitchSetting kSaveMainWindow{{kMainWindow, "Save"}, true};
/// 0 normal, 1 minimised, 2 maximised.
inline constexpr NumberSetting kMainWindowState{{kMainWindow, "State"}, 0, 0, 2, Correction::kDefault};
inline constexpr PairSetting kMainWindowPosition{{kMainWindow, "Position"}};  ///< left, top; logical pixels
inline constexpr PairSetting kMainWindowSize{{kMainWindow, "Size"}};          ///< height, width

// The dialogs. Their positions (left, top; logical pixels) have no default: the file has one after the dialog
// was open.
inline constexpr char kWindows[] = "Windows";
inline constexpr SwitchSetting kSaveWindows{{kWindows, "Save"}, true};
inline constexpr PairSetting kUserSettingsPosition{{kWindows, "UserSettings"}};
inline constexpr PairSetting kMapSettingsPosition{{kWindows, "MapSettings"}};
inline constexpr PairSetting kColourSettingsPosition{{kWindows, "ColorSettings"}};
inline constexpr PairSetting kDelimitAllAirportsPosition{{kWindows, "DelimitAllAirport"}};
inline constexpr PairSetting kDelimitDestinationsPosition{{kWindows, "DelimitDestination"}};
inline constexpr PairSetting kRandomFlightsPosition{{kWindows, "RandomFlight"}};
inline constexpr PairSetting kSelectFlightsPosition{{kWindows, "SelectFlight"}};
inline constexpr PairSetting kSelectDestinationPosition{{kWindows, "SelectDestination"}};
inline constexpr PairSetting kHelpRevisionPosition{{kWindows, "HelpRevision"}};
inline constexpr PairSetting kHelpMousePosition{{kWindows, "HelpUseOfMouse"}};
inline constexpr PairSetting kHelpInfoPosition{{kWindows, "HelpInfo"}};

// The check marks of the menus. All but the first are read and written only while it is on.
inline constexpr char kMenuEntries[] = "MenuEntryChecked";
inline constexpr SwitchSetting kSaveMenuEntries{{kMenuEntries, "Save"}, false};
inline constexpr SwitchSetting kViewCentreOfMap{{kMenuEntries, "ViewCentreOfMap"}, false};
inline constexpr SwitchSetting kViewRivers{{kMenuEntries, "ViewRiver"}, false};
inline constexpr SwitchSetting kViewBoundaries{{kMenuEntries, "ViewIntBoundary"}, false};
inline constexpr SwitchSetting kViewAllAirports{{kMenuEntries, "ViewAllAirport"}, false};
inline constexpr SwitchSetting kViewDestinations{{kMenuEntries, "ViewDestination"}, false};
inline constexpr SwitchSetting kShowAirports{{kMenuEntries, "ShowAirport"}, true};
inline constexpr SwitchSetting kShowFlightNumbers{{kMenuEntries, "ShowFlightnumber"}, true};
inline constexpr SwitchSetting kShowLegNumbers{{kMenuEntries, "ShowLegnumber"}, false};
inline constexpr SwitchSetting kShowAircraftSymbols{{kMenuEntries, "ShowAircraftSymbol"}, false};

// The map.
/// "name,size" in points. The font table has keys and defaults, `data/fonts.h` the size in place of a wrong
/// one.
inline constexpr SettingFamily kFonts{"Fonts"};
inline constexpr int kSmallestFontSize = 6;
inline constexpr int kLargestFontSize = 14;
/// "red,green,blue", each brought into 0..255. The colour table has keys and defaults.
inline constexpr SettingFamily kColours{"Colors"};
/// As kColours. A flight service's key is that of its colour.
inline constexpr SettingFamily kFlightColours{"FlightColors"};
/// The meridian in the middle of the world: 0 Greenwich, 1 75 degrees west, 2 the next setting.
inline constexpr NumberSetting kWorldCentre{{"Region", "CentreWorld"}, 1, 0, 2, Correction::kExact};
/// Degrees, east positive.
inline constexpr RealSetting kWorldCentreLongitude{{"Region", "CentreWorldAtLON"}, 0, -180, 180};

inline constexpr char kProgram[] = "Program";
/// Whether a tool tip says what is under the pointer. Any text but "0" is on. Only read: a missing key is not
/// written.
inline constexpr SwitchSetting kMapTips{{kProgram, "MapToolTips"}, true, true};

// What the flight finding dialogs show at first.
/// 1 one flight, 2 a round trip.
inline constexpr NumberSetting kRandomFlights{{kProgram, "RandomFlitHowMany"}, 2, 1, 2, Correction::kDefault};
inline constexpr SwitchSetting kSearchOrigin{{kProgram, "SeleDestCheckDest"}, true, true};
inline constexpr SwitchSetting kSearchStopovers{{kProgram, "SeleDestCheckStop"}, true, true};
inline constexpr SwitchSetting kSearchDestination{{kProgram, "SeleDestCheckArr"}, true, true};

// The revision numbers of the data, in a file of their own.
inline constexpr SettingFamily kRevisions{"RevZBL"};
/// Of everything, schedule, flight services, airports and Zerbal's data.
inline constexpr std::array kRevisionKeys{"RevZBLAll", "RevSchdMain", "RevSchdFSrv", "RevStemAprt",
                                          "RevZBLData"};
inline constexpr char kUnknownRevision[] = "Unknown";  ///< the default

}  // namespace zerbal::settings
