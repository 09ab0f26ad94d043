#include "app/start_up.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFontDatabase>
#include <QThread>
#include <algorithm>
#include <string>
#include <vector>

#include "base/numbers.h"
#include "data/load_error.h"

namespace zerbal::app {
namespace {

using settings::BoxIcon;

constexpr int kWaitSliceMs = 10;

std::vector<std::string> InstalledFonts() {
  std::vector<std::string> names;
  for (const QString& family : QFontDatabase::families())
    names.push_back(family.toStdString());
  return names;
}

/// Lets windows be painted, but keeps the user's keys and clicks from a program that is not built yet.
void PaintWindows() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace

Main::Main(const Environment& environment)
    : program_(environment), ownDialogs_(program_), dialogs_(ownDialogs_) {}

Main::Main(const Environment& environment, Dialogs& dialogs)
    : program_(environment), ownDialogs_(program_), dialogs_(dialogs) {}

Main::~Main() = default;

bool Main::Start() {
  const bool started = RunSteps();
  if (!started)
    ShutDown();
  return started;
}

bool Main::RunSteps() {
  ShowSplash();
  if (!FindFiles())
    return false;
  program_.databases = data::OpenDatabases(program_.files);
  if (!LoadTables())
    return false;
  LoadMainWindow();
  const int splashSeconds = SplashSeconds();
  if (!ReadSettings())
    return false;
  SetWorldView();
  mainWindow_->SetBackground(program_.style.colours[data::ColourCode::kMapBg]);
  // In milliseconds, so that two starts within one second draw other flights.
  program_.environment.random.Seed(
      static_cast<std::uint32_t>(program_.environment.clock.SecondsSinceMidnight() * 1000));
  ResetRunState();
  WaitForSplash(splashSeconds);
  ShowWindows();
  return true;
}

void Main::ShowSplash() {
  splash_ = std::make_unique<frmSplash>();
  splash_->show();
  splash_->repaint();
  PaintWindows();
  splashShown_ = program_.environment.clock.SecondsSinceMidnight();
}

bool Main::FindFiles() {
  const Environment& environment = program_.environment;
  const data::FoundFiles found = data::FindDataFiles(environment.appPath);
  for (const std::filesystem::path& file : found.missing)
    environment.boxes.Show(BoxIcon::kExclamation, "File '" + file.string() + "' could not be found.");
  program_.files = found.files;
  program_.riverAvailable = found.files.river.has_value();
  program_.boundaryAvailable = found.files.ibound.has_value();
  if (!found.missing.empty())
    environment.boxes.Show(BoxIcon::kCritical, "Not all files found. The program aborts.");
  return found.missing.empty();
}

bool Main::LoadTables() {
  try {
    program_.style = data::LoadMapStyle(program_.files.zbldata);
    program_.services = program_.databases->schedule.LoadServices();
    return true;
  } catch (const data::LoadError& error) {
    program_.environment.boxes.Show(BoxIcon::kCritical, error.what());
    return false;
  }
}

void Main::LoadMainWindow() {
  mainWindow_ = std::make_unique<frmMain>(program_, dialogs_);
  mainWindow_->Load();
}

int Main::SplashSeconds() {
  using settings::kSplashSeconds;
  return program_.iniFile.Find(kSplashSeconds).value_or(kSplashSeconds.byDefault);
}

bool Main::ReadSettings() {
  settings::IniFile& ini = program_.iniFile;
  data::MapStyle& style = program_.style;
  const bool read = data::ReadFontSettings(ini, style.fonts, InstalledFonts()) &&
                    data::ReadColourSettings(ini, style.colours) &&
                    data::ReadFlightColourSettings(ini, program_.services) &&
                    data::ReadRegionSettings(ini, style.regions);
  if (read)
    data::ReadFlightFinderSettings(ini, program_.finder);
  return read;
}

void Main::SetWorldView() {
  program_.viewport.SelectRegion(program_.style.regions.rows.front());
}

void Main::ResetRunState() {
  program_.finder.chosenService = 0;
  program_.finder.chosenAirport = 0;
  program_.finder.drawnService = 0;
  program_.finder.drawnFlights.clear();
  program_.flights = {};
  program_.allAirportCriteria = {};
  program_.destinationCriteria = {};
  mainWindow_->UpdateDelimitationInfo();
}

void Main::WaitForSplash(int seconds) {
  const float begin = splashShown_;
  float end = begin + static_cast<float>(seconds);
  // A time before the begin is one after midnight. Loading may have taken the start across it already.
  if (end >= kSecondsADay) {
    end -= kSecondsADay;
    WaitWhile([=](float now) { return now >= begin; });
    WaitWhile([=](float now) { return now < end; });
  } else {
    WaitWhile([=](float now) { return now >= begin && now < end; });
  }
}

void Main::WaitWhile(const std::function<bool(float now)>& condition) {
  while (condition(program_.environment.clock.SecondsSinceMidnight())) {
    PaintWindows();
    QThread::msleep(kWaitSliceMs);
  }
}

void Main::ShowWindows() {
  splash_.reset();
  mainWindow_->show();
  mainWindow_->MapWindow().show();
}

void Main::ShutDown() {
  splash_.reset();
  if (mainWindow_ != nullptr)
    mainWindow_->Unload();
  mainWindow_.reset();
  program_.databases.reset();
}

}  // namespace zerbal::app
