#include <csignal>
#include <cstdio>
#include <memory>

#include <fcntl.h>
#include <io.h>

#include "base/program.h"
#include "base/windows_calls.h"

namespace zerbal::base {

namespace fs = std::filesystem;

namespace {

std::string Utf8Of(const std::wstring& text) {
  const auto length = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), size, nullptr, nullptr);
  return utf8;
}

}  // namespace

/// The words that `main` gets are in the user's code page, which lacks most characters.
std::vector<std::string> ProgramArguments(int /*argc*/, char** /*argv*/) {
  int count = 0;
  const std::unique_ptr<LPWSTR, decltype(&LocalFree)> words(CommandLineToArgvW(GetCommandLineW(), &count),
                                                            LocalFree);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i)
    arguments.push_back(Utf8Of(words.get()[i]));
  return arguments;
}

fs::path ProgramFile() {
  std::wstring name(MAX_PATH, L'\0');
  for (;;) {
    const auto size = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    if (size < name.size()) {
      name.resize(size);
      return name;
    }
    name.resize(name.size() * 2);
  }
}

void PrepareStandardOutput() {
  SetConsoleOutputCP(CP_UTF8);
  for (FILE* stream : {stdout, stderr})
    _setmode(_fileno(stream), _O_BINARY);
}

bool ErrorsGoToTerminal() {
  return _isatty(_fileno(stderr)) != 0;
}

void CatchInterruptions(void (*handler)(int)) {
  for (const int signalNumber : {SIGINT, SIGTERM, SIGBREAK})
    std::signal(signalNumber, handler);
}

}  // namespace zerbal::base
