#include "app/running_program.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFontDatabase>
#include <QThread>
#include <algorithm>
#include <string>
#include <vector>

#include "app/late_icon.h"
#include "data/error.h"

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

/// Paints windows and leaves the user's keys and clicks for after the start.
void PaintWindows() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace

RunningProgram::RunningProgram(const Environment& environment, Dialogs* dialogs)
    : environment_(environment),
      state_(environment.appPath, environment.boxes),
      ownDialogs_({state_.settingsFile, environment.boxes, environment.random, state_.files, state_.databases,
                   state_.map, state_.delimitations, state_.finder}),
      dialogs_(dialogs != nullptr ? *dialogs : ownDialogs_) {}

bool RunningProgram::Start() {
  const bool started = RunSteps();
  if (!started)
    ShutDown();
  return started;
}

bool RunningProgram::RunSteps() {
  ShowSplash();
  if (!FindFiles())
    return false;
  state_.databases = data::OpenDatabases(state_.files);
  if (!LoadTables())
    return false;
  LoadMainWindow();
  const int splashSeconds = SplashSeconds();
  if (!ReadSettings())
    return false;
  state_.map.viewport.SelectRegion(state_.map.style.regions.rows.front());
  mainWindow_->SetBackground(state_.map.style.colours[data::ColourCode::kMapBg]);
  // In milliseconds, so that two starts within one second draw different flights.
  environment_.random.Seed(static_cast<std::uint32_t>(environment_.clock.SecondsSinceMidnight() * 1000));
  WaitForSplash(splashSeconds);
  ShowWindows();
  return true;
}

void RunningProgram::ShowSplash() {
  splash_ = std::make_unique<frmSplash>();
  ShowWithoutIcon(*splash_);
  splash_->repaint();
  PaintWindows();
  splashShown_ = environment_.clock.SecondsSinceMidnight();
}

bool RunningProgram::FindFiles() {
  const data::FoundFiles found = data::FindDataFiles(environment_.appPath);
  for (const std::filesystem::path& file : found.missing)
    environment_.boxes.Show(BoxIcon::kExclamation, "File '" + file.string() + "' could not be found.");
  state_.files = found.files;
  if (!found.missing.empty())
    environment_.boxes.Show(BoxIcon::kCritical, "Not all files found. The program aborts.");
  return found.missing.empty();
}

bool RunningProgram::LoadTables() {
  try {
    state_.map.style = data::LoadMapStyle(state_.files.zbldata);
    state_.map.services = state_.databases->schedule.LoadServices();
    return true;
  } catch (const data::LoadError& error) {
    environment_.boxes.Show(BoxIcon::kCritical, error.what());
    return false;
  }
}

void RunningProgram::LoadMainWindow() {
  mainWindow_ = std::make_unique<frmMain>(state_.settingsFile, state_.map, state_.delimitations,
                                          state_.databases, dialogs_, environment_.boxes);
  mainWindow_->Load(state_.files);
  mainWindow_->MapWindow().SetObserver(environment_.mapObserver);
}

int RunningProgram::SplashSeconds() {
  using settings::kSplashSeconds;
  return state_.settingsFile.ini.Find(kSplashSeconds).value_or(kSplashSeconds.byDefault);
}

bool RunningProgram::ReadSettings() {
  settings::IniFile& ini = state_.settingsFile.ini;
  data::MapStyle& style = state_.map.style;
  const bool read = data::ReadFontSettings(ini, style.fonts, InstalledFonts()) &&
                    data::ReadColourSettings(ini, style.colours) &&
                    data::ReadFlightColourSettings(ini, state_.map.services) &&
                    data::ReadRegionSettings(ini, style.regions);
  if (read)
    data::ReadFlightFinderSettings(ini, state_.finder);
  return read;
}

void RunningProgram::WaitForSplash(int seconds) {
  const float begin = splashShown_;
  float end = begin + static_cast<float>(seconds);
  // A time before `begin` is after midnight. Loading may already have passed midnight.
  if (end >= kSecondsADay) {
    end -= kSecondsADay;
    WaitWhile([=](float now) { return now >= begin; });
    WaitWhile([=](float now) { return now < end; });
  } else {
    WaitWhile([=](float now) { return now >= begin && now < end; });
  }
}

void RunningProgram::WaitWhile(const std::function<bool(float now)>& condition) {
  while (condition(environment_.clock.SecondsSinceMidnight())) {
    PaintWindows();
    QThread::msleep(kWaitSliceMs);
  }
}

void RunningProgram::ShowWindows() {
  splash_.reset();
  ShowWithoutIcon(*mainWindow_);
  SetIconAfterPaint(*mainWindow_, mainWindow_->MapWindow());
  mainWindow_->MapWindow().show();
  mainWindow_->MapWindow().setFocus();
}

void RunningProgram::ShutDown() {
  splash_.reset();
  if (mainWindow_ != nullptr)
    mainWindow_->Unload();
  mainWindow_.reset();
  state_.databases.reset();
}

}  // namespace zerbal::app
