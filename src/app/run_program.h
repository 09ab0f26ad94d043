// The whole program as one call.
#pragma once

namespace zerbal::app {

/// Runs the program in the current working directory and returns its exit status: 0 when its main window was
/// closed, another when the start or an error ended it.
int RunProgram(int argc, char** argv);

}  // namespace zerbal::app
