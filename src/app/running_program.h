// The program from its start to its end.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "app/dialogs.h"
#include "app/frm_main.h"
#include "app/frm_splash.h"
#include "app/program_state.h"

namespace zerbal::app {

/// Owns the windows and what they share. After Start, the program runs on window events until its main window
/// is closed.
class RunningProgram {
 public:
  /// `dialogs` replaces the program's own dialogs and outlives this; nullptr = its own.
  explicit RunningProgram(const Environment& environment, Dialogs* dialogs = nullptr);

  /// Runs every step of the start; called once. Returns false when a step ended it: the user has seen why,
  /// and nothing is open any more. Throws the errors of the database engine.
  bool Start();

  bool Running() const { return mainWindow_ != nullptr && mainWindow_->Loaded(); }
  ProgramState& State() { return state_; }
  /// Only after Start returned true.
  frmMain& MainWindow() { return *mainWindow_; }

 private:
  bool RunSteps();
  bool FindFiles();
  bool LoadTables();
  void LoadMainWindow();
  int SplashSeconds();
  bool ReadSettings();
  void ShowSplash();
  void WaitForSplash(int seconds);
  void WaitWhile(const std::function<bool(float now)>& condition);
  void ShowWindows();
  void ShutDown();

  Environment environment_;
  ProgramState state_;
  ProgramDialogs ownDialogs_;
  Dialogs& dialogs_;
  std::unique_ptr<frmSplash> splash_;
  std::unique_ptr<frmMain> mainWindow_;
  float splashShown_ = 0;  ///< seconds since midnight
};

}  // namespace zerbal::app
