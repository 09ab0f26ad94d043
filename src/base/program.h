// What `main` asks the operating system.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace zerbal::base {

/// The words of the command line without the program's name, in UTF-8.
std::vector<std::string> ProgramArguments(int argc, char** argv);

/// The program's own file; empty when the system does not tell.
std::filesystem::path ProgramFile();

/// Lets the standard output and error output take UTF-8 and leave line ends as they are.
void PrepareStandardOutput();

/// Whether messages go to a terminal.
bool ErrorsGoToTerminal();

/// Calls `handler` with the number of the signal that asks the program to end.
void CatchInterruptions(void (*handler)(int));

}  // namespace zerbal::base
