#include "lives.h"

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

#include "choice.h"
#include "life.h"
#include "world.h"

namespace zerbal::monkey {
namespace {

constexpr int kLongestLife = 400;  ///< actions
/// No action takes that long, not even under a sanitizer on a busy machine.
constexpr int kHangMs = 60000;

struct Ending {
  int actions = 0;
  int misfortunes = 0;  ///< among the actions
  bool hung = false;
  int status = 0;  ///< as waitpid gives it
  /// What the action was done to that met the error of the engine, and the error's reason without file and
  /// table.
  std::pair<std::string, std::string> fault;
};

std::string AfterLast(std::string_view mark, std::string_view text) {
  const std::size_t at = text.rfind(mark);
  return std::string(at == std::string_view::npos ? text : text.substr(at + mark.size()));
}

class LifeProcess {
 public:
  LifeProcess(const std::filesystem::path& program, World& world, std::uint32_t seed, int actions)
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
        execl(program.c_str(), program.c_str(), "--life", words[0].c_str(), words[1].c_str(), nullptr);
      _exit(127);
    }
    close(ends[1]);
    output_ = ends[0];
  }
  ~LifeProcess() { close(output_); }
  LifeProcess(const LifeProcess&) = delete;
  LifeProcess& operator=(const LifeProcess&) = delete;

  /// Passes on what it prints until it ends, or ends it when it prints nothing for too long.
  Ending Watch() {
    Ending ending;
    pollfd waiting{output_, POLLIN, 0};
    for (;;) {
      if (poll(&waiting, 1, kHangMs) == 0) {
        ending.hung = true;
        kill(process_, SIGABRT);
        break;
      }
      char buffer[4096];
      const ssize_t size = read(output_, buffer, sizeof buffer);
      if (size <= 0)
        break;
      for (const char letter : std::string_view(buffer, static_cast<std::size_t>(size)))
        Take(letter, ending);
    }
    waitpid(process_, &ending.status, 0);
    return ending;
  }

 private:
  void Take(char letter, Ending& ending) {
    if (letter != '\n') {
      line_ += letter;
      return;
    }
    std::cout << "  " << line_ << '\n';
    const std::string number = std::to_string(ending.actions + 1) + ' ';
    if (line_.starts_with(number))
      TakeAction(line_.substr(number.size()), ending);
    else if (line_.starts_with("error: "))
      ending.fault = {target_, AfterLast(": ", line_)};  // a box follows, which is answered by actions
    line_.clear();
  }
  void TakeAction(const std::string& action, Ending& ending) {
    ++ending.actions;
    const bool database = action.starts_with("database ");
    const bool settings = action.starts_with("settings file ");
    world_.databasesHurt |= database;
    world_.settingsHurt |= settings;
    if (database || settings)
      ++ending.misfortunes;
    else
      target_ = AfterLast(" ", action);
  }

  World& world_;
  pid_t process_ = 0;
  int output_ = -1;
  std::string line_;
  std::string target_ = "the start";  ///< of the last action
};

/// What is wrong with the end of a life; empty when it may end so.
std::string Complaint(const Ending& ending, const World& world) {
  if (ending.hung)
    return "a hang";
  if (WIFSIGNALED(ending.status))
    return "signal " + std::to_string(WTERMSIG(ending.status));
  switch (WEXITSTATUS(ending.status)) {
    case kClosed:
      return {};
    case kRefused:
      return world.databasesHurt || world.settingsHurt ? "" : "the start was refused without a reason";
    case kEngineError:
      return world.databasesHurt ? "" : "the engine failed on whole files";
    case kUnexpected:
      return "an exception that is none of the engine's";
    default:
      return "exit status " + std::to_string(WEXITSTATUS(ending.status));
  }
}

struct Tally {
  int lives = 0;
  int closed = 0;
  int refused = 0;
  int engineErrors = 0;
  int misfortunes = 0;
  std::map<std::string, int> places;   ///< of engine errors
  std::map<std::string, int> reasons;  ///< of engine errors
};

void Count(const Ending& ending, Tally& tally) {
  const int status = WEXITSTATUS(ending.status);
  ++tally.lives;
  tally.misfortunes += ending.misfortunes;
  tally.closed += status == kClosed ? 1 : 0;
  tally.refused += status == kRefused ? 1 : 0;
  if (status != kEngineError)
    return;
  ++tally.engineErrors;
  ++tally.places[ending.fault.first];
  ++tally.reasons[ending.fault.second];
}

void Show(const char* title, const std::map<std::string, int>& counts) {
  if (!counts.empty())
    std::cout << title << '\n';
  for (const auto& [name, count] : counts)
    std::cout << "  " << count << ' ' << name << '\n';
}

}  // namespace

bool PlayLives(const char* program, std::uint32_t seed, int actions) {
  const std::filesystem::path self = std::filesystem::absolute(program);
  Choice choice(seed);
  auto world = std::make_unique<World>();
  Tally tally;
  int left = actions;
  while (left > 0) {
    const auto lifeSeed = static_cast<std::uint32_t>(choice.Below(1 << 30));
    const int length = std::min(left, kLongestLife);
    std::cout << "life " << tally.lives + 1 << ", seed " << lifeSeed << ", " << length << " actions"
              << std::endl;
    const Ending ending = LifeProcess(self, *world, lifeSeed, length).Watch();
    if (const std::string complaint = Complaint(ending, *world); !complaint.empty()) {
      std::cout << "FAILED: " << complaint << "; again with: zerbal-monkey " << seed << ' ' << actions
                << std::endl;
      return false;
    }
    Count(ending, tally);
    left -= std::max(1, ending.actions);
    // Often the next life finds what this one left behind, in its settings and in its files.
    if (choice.OneIn(3) || (world->databasesHurt && !choice.OneIn(3)))
      world = std::make_unique<World>();
    else
      world->WaitForNoSplash();
  }
  Show("engine errors at:", tally.places);
  Show("engine errors because:", tally.reasons);
  std::cout << "seed " << seed << ": " << actions << " actions, " << tally.misfortunes
            << " of them misfortunes, in " << tally.lives << " lives; " << tally.closed << " closed, "
            << tally.engineErrors << " ended by an engine error, " << tally.refused << " refused at the start"
            << std::endl;
  return true;
}

}  // namespace zerbal::monkey
