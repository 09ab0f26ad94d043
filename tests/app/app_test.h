// The program in a temporary folder with the small world, a clock that the test controls, recorded boxes, and
// dialogs that only record their calls.
#pragma once

#include <QAction>
#include <QCheckBox>
#include <QCoreApplication>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "app/running_program.h"
#include "map/recorder.h"
#include "support/recorded_boxes.h"
#include "support/settings_file.h"
#include "support/small_world.h"
#include "support/temp_folder.h"

namespace zerbal::test {

/// Each reading advances it.
class FakeClock final : public app::Clock {
 public:
  float SecondsSinceMidnight() override {
    const float seen = now;
    seenTimes.push_back(seen);
    now += step;
    if (now >= app::kSecondsADay)
      now -= app::kSecondsADay;
    return seen;
  }
  float now = 1000;
  float step = 0.25F;
  std::vector<float> seenTimes;
};

class FakeDialogs final : public app::Dialogs {
 public:
  bool ShowModal(app::DialogKind kind, QWidget&) override {
    shown.push_back(kind);
    if (whileOpen)
      whileOpen();
    return confirm;
  }
  std::optional<std::filesystem::path> AskMapFile(QWidget&) override {
    ++mapFileAsked;
    if (whileOpen)
      whileOpen();
    return mapFile;
  }
  std::vector<app::DialogKind> shown;
  int mapFileAsked = 0;
  std::optional<std::filesystem::path> mapFile;  ///< chosen by the user; none: aborted
  bool confirm = false;
  std::function<void()> whileOpen;
};

class AppTest : public testing::Test {
 protected:
  void SetUp() override { DisableSplashWait(folder.Path()); }

  /// Writes the world's files to the folder and runs the start-up there.
  bool Start() {
    world.Write(folder.Path());
    return StartHere();
  }
  bool StartHere() {
    program.emplace(app::Environment{app::WithSeparator(folder.Path()), clock, random, boxes, &drawn},
                    &dialogs);
    return program->Start();
  }
  void SetIni(const char* section, const char* key, std::string_view value) {
    ASSERT_TRUE(settings::WriteProfileString(IniFile(), section, key, value));
  }
  /// The value in the file, "(missing)" when there is none.
  std::string Ini(const char* section, const char* key) const {
    return settings::ReadProfileString(IniFile(), section, key, "(missing)", 2000);
  }
  std::filesystem::path IniFile() const { return folder / kSettingsFile; }
  /// Makes the settings file unwritable: a folder has its name.
  void MakeIniUnwritable() { std::filesystem::create_directory(IniFile()); }

  app::frmMain& Window() { return program->MainWindow(); }
  app::ProgramState& State() { return program->State(); }
  int Draws() { return Window().MapWindow().Draws(); }
  QAction* Entry(const char* name) {
    auto* action = Window().findChild<QAction*>(name);
    if (action == nullptr)
      throw std::runtime_error(std::string("no entry ") + name);
    return action;
  }
  template <class Control>
  Control* Find(const char* name) {
    auto* control = Window().findChild<Control*>(name);
    if (control == nullptr)
      throw std::runtime_error(std::string("no control ") + name);
    return control;
  }
  /// The number of redraws that choosing an entry causes.
  int DrawsOf(const char* name) {
    const int before = Draws();
    Entry(name)->trigger();
    return Draws() - before;
  }

  TempFolder folder;
  SmallWorld world;
  FakeClock clock;
  app::MersenneRandom random;
  RecordedBoxes boxes;
  FakeDialogs dialogs;
  map::Recorder drawn;
  std::optional<app::RunningProgram> program;
};

/// A program that has started.
class RunningTest : public AppTest {
 protected:
  void SetUp() override {
    AppTest::SetUp();
    ASSERT_TRUE(Start());
  }
};

}  // namespace zerbal::test
