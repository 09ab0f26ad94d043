#include "session_runner.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include "random_choice.h"
#include "session.h"
#include "world_folder.h"

namespace zerbal::monkey {
namespace {

constexpr int kActionsPerSession = 400;
/// No action takes this long, even with a sanitizer on a busy machine.
constexpr int kHangMs = 60000;

struct SessionResult {
  int actions = 0;
  int corruptions = 0;  ///< among the actions
  bool hung = false;
  int status = 0;  ///< as waitpid gives it
  /// The control or entry whose action ended in an engine error, and the error's reason without file and
  /// table.
  std::pair<std::string, std::string> engineError;
};

std::string AfterLast(std::string_view mark, std::string_view text) {
  const std::size_t at = text.rfind(mark);
  return std::string(at == std::string_view::npos ? text : text.substr(at + mark.size()));
}

class SessionProcess {
 public:
  SessionProcess(const std::filesystem::path& program, WorldFolder& world, std::uint32_t seed, int actions)
      : world_(world) {
    int ends[2];
    if (pipe(ends) != 0)
      throw std::runtime_error("no pipe");
    const std::string words[] = {std::to_string(seed), std::to_string(actions)};
    std::cout.flush();
    process_ = fork();
    if (process_ == 0) {
      dup2(ends[1], STDOUT_FILENO);
      close(ends[0]);
      close(ends[1]);
      if (chdir(world.Path().c_str()) == 0)
        execl(program.c_str(), program.c_str(), "--session", words[0].c_str(), words[1].c_str(), nullptr);
      _exit(127);
    }
    close(ends[1]);
    output_ = ends[0];
  }
  ~SessionProcess() { close(output_); }
  SessionProcess(const SessionProcess&) = delete;
  SessionProcess& operator=(const SessionProcess&) = delete;

  /// Prints the output of the process until it ends. Aborts it when it prints nothing for kHangMs.
  SessionResult Wait() {
    SessionResult result;
    pollfd waiting{output_, POLLIN, 0};
    for (;;) {
      if (poll(&waiting, 1, kHangMs) == 0) {
        result.hung = true;
        kill(process_, SIGABRT);
        break;
      }
      char buffer[4096];
      const ssize_t size = read(output_, buffer, sizeof buffer);
      if (size <= 0)
        break;
      for (const char letter : std::string_view(buffer, static_cast<std::size_t>(size)))
        TakeCharacter(letter, result);
    }
    waitpid(process_, &result.status, 0);
    return result;
  }

 private:
  void TakeCharacter(char letter, SessionResult& result) {
    if (letter != '\n') {
      line_ += letter;
      return;
    }
    std::cout << "  " << line_ << '\n';
    const std::string number = std::to_string(result.actions + 1) + ' ';
    if (line_.starts_with(number))
      TakeAction(line_.substr(number.size()), result);
    else if (line_.starts_with("error: "))
      result.engineError = {target_, AfterLast(": ", line_)};  // actions that answer its box follow
    line_.clear();
  }
  void TakeAction(const std::string& action, SessionResult& result) {
    ++result.actions;
    const bool database = action.starts_with("database ");
    const bool settings = action.starts_with("settings file ");
    world_.databasesCorrupted |= database;
    world_.settingsCorrupted |= settings;
    if (database || settings)
      ++result.corruptions;
    else
      target_ = AfterLast(" ", action);
  }

  WorldFolder& world_;
  pid_t process_ = 0;
  int output_ = -1;
  std::string line_;
  std::string target_ = "the start";  ///< of the last action
};

/// Why the session may not end so; empty when it may.
std::string FailureOf(const SessionResult& result, const WorldFolder& world) {
  if (result.hung)
    return "a hang";
  if (WIFSIGNALED(result.status))
    return "signal " + std::to_string(WTERMSIG(result.status));
  switch (WEXITSTATUS(result.status)) {
    case kClosed:
      return {};
    case kStartRefused:
      return world.databasesCorrupted || world.settingsCorrupted
                 ? ""
                 : "the start was refused although all files are intact";
    case kEngineError:
      return world.databasesCorrupted ? "" : "the engine failed on intact databases";
    case kUnexpectedException:
      return "an exception that is not an engine error";
    default:
      return "exit status " + std::to_string(WEXITSTATUS(result.status));
  }
}

struct Statistics {
  int sessions = 0;
  int closed = 0;
  int refused = 0;
  int engineErrors = 0;
  int corruptions = 0;
  std::map<std::string, int> errorsByControl;
  std::map<std::string, int> errorsByReason;
};

void Add(const SessionResult& result, Statistics& statistics) {
  const int status = WEXITSTATUS(result.status);
  ++statistics.sessions;
  statistics.corruptions += result.corruptions;
  statistics.closed += status == kClosed ? 1 : 0;
  statistics.refused += status == kStartRefused ? 1 : 0;
  if (status != kEngineError)
    return;
  ++statistics.engineErrors;
  ++statistics.errorsByControl[result.engineError.first];
  ++statistics.errorsByReason[result.engineError.second];
}

void Print(const char* title, const std::map<std::string, int>& counts) {
  if (!counts.empty())
    std::cout << title << '\n';
  for (const auto& [name, count] : counts)
    std::cout << "  " << count << ' ' << name << '\n';
}

}  // namespace

bool RunSessions(const char* program, std::uint32_t seed, int actions) {
  const std::filesystem::path self = std::filesystem::absolute(program);
  RandomChoice choice(seed);
  auto world = std::make_unique<WorldFolder>();
  Statistics statistics;
  int actionsLeft = actions;
  while (actionsLeft > 0) {
    const auto sessionSeed = static_cast<std::uint32_t>(choice.Below(1 << 30));
    const int length = std::min(actionsLeft, kActionsPerSession);
    std::cout << "session " << statistics.sessions + 1 << ", seed " << sessionSeed << ", " << length
              << " actions" << std::endl;
    const SessionResult result = SessionProcess(self, *world, sessionSeed, length).Wait();
    if (const std::string failure = FailureOf(result, *world); !failure.empty()) {
      std::cout << "FAILED: " << failure << "; to repeat: zerbal-monkey " << seed << ' ' << actions
                << std::endl;
      return false;
    }
    Add(result, statistics);
    actionsLeft -= std::max(1, result.actions);
    // The next session often starts with the settings and files that this one leaves.
    if (choice.OneIn(3) || (world->databasesCorrupted && !choice.OneIn(3)))
      world = std::make_unique<WorldFolder>();
    else
      world->DisableSplashWait();
  }
  Print("engine errors by control:", statistics.errorsByControl);
  Print("engine errors by reason:", statistics.errorsByReason);
  std::cout << "seed " << seed << ": " << actions << " actions, " << statistics.corruptions
            << " of them corruptions, in " << statistics.sessions << " sessions; " << statistics.closed
            << " closed, " << statistics.engineErrors << " ended by an engine error, " << statistics.refused
            << " refused at the start" << std::endl;
  return true;
}

}  // namespace zerbal::monkey
