// Acceptance scripts: what zerbal-drive plays, with directives for the test that plays it.
//
// A line that begins with "#:" is a directive; zerbal-drive skips it as a comment. The last argument of a
// directive runs to the end of the line. Every other line that begins with "#" is a comment: it has a blank
// after the "#" and does not begin with the name of a directive.
//
// Before the first command of the script, to prepare its folder:
//   #: without-file river.mdb               the folder lacks this database
//   #: without-row col Col RIVER            the table lacks the row whose column Col holds RIVER
//   #: empty-table fsrv                     the table has no rows
//   #: setting Region CentreWorld 2         the settings file holds this key
//   #: revision RevSchdMain 7.2             the revision file holds this key
// Before the first command of a run:
//   #: read-only zerbal.ini                 the file cannot be written from this run on
//   #: minimum-seconds 2                    the run takes at least this time
//   #: exit-status 3                        the driver ends with this status instead of 0
// Between two runs:
//   #: next-run                             a second process plays the rest in the same folder
//
// The word FOLDER stands for the folder's path. The splash window closes at once unless a setting says
// otherwise.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "support/small_world.h"

namespace zerbal::test {

struct SettingDirective {
  std::string section;
  std::string key;
  std::string value;
};

struct ScriptRun {
  std::vector<std::string> readOnlyFiles;
  double minimumSeconds = 0;
  int exitStatus = 0;
  /// With an empty line for each line of earlier runs, so that the driver counts lines as the file does.
  std::string commands;
};

struct AcceptanceScript {
  SmallWorld world;
  std::vector<SettingDirective> settings;
  std::vector<SettingDirective> revisions;
  std::vector<ScriptRun> runs;
};

class ScriptError : public std::runtime_error {
 public:
  ScriptError(int line, const std::string& reason) : std::runtime_error(reason), line_(line) {}
  int Line() const { return line_; }

 private:
  int line_;
};

/// Throws ScriptError for a directive that is unknown, misplaced or lacks an argument, for one whose argument
/// is not a number or names a file, table, column or row that the small world does not have, and for a
/// comment that looks like a directive.
AcceptanceScript ParseScript(const std::string& text);

}  // namespace zerbal::test
