// The start of the program, from the splash window to the first map.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "app/dialogs.h"
#include "app/frm_main.h"
#include "app/frm_splash.h"
#include "app/program.h"

namespace zerbal::app {

/// Owns the running program. Start runs once; from then on the program lives on window events until its main
/// window is closed.
class Main {
 public:
  explicit Main(const Environment& environment);
  /// With other dialogs than the program's own; they outlive this.
  Main(const Environment& environment, Dialogs& dialogs);
  ~Main();

  /// Runs every step of the start. False when one of them ended it: the user has been told why, and nothing
  /// is open any more. An error of the database engine is thrown.
  bool Start();

  bool Running() const { return mainWindow_ != nullptr && mainWindow_->Loaded(); }
  Program& State() { return program_; }
  /// Only after Start returned true.
  frmMain& MainWindow() { return *mainWindow_; }

 private:
  bool RunSteps();
  bool FindFiles();
  bool LoadTables();
  void LoadMainWindow();
  int SplashSeconds();
  bool ReadSettings();
  void SetWorldView();
  void ResetRunState();
  void ShowSplash();
  void WaitForSplash(int seconds);
  void WaitWhile(const std::function<bool(float now)>& condition);
  void ShowWindows();
  void ShutDown();

  Program program_;
  ProgramDialogs ownDialogs_;
  Dialogs& dialogs_;
  std::unique_ptr<frmSplash> splash_;
  std::unique_ptr<frmMain> mainWindow_;
  float splashShown_ = 0;  ///< seconds since midnight
};

}  // namespace zerbal::app
