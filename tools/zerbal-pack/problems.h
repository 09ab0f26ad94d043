// Faults in a planner's files, collected so that one run reports all.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace zerbal::pack {

enum class Severity {
  kError,    ///< the row or record is not used
  kWarning,  ///< it is used, and may not mean what the planner wanted
  kNote
};

struct Problem {
  std::string file;
  std::size_t line = 0;  ///< from 1; 0 = the whole file
  std::string column;    ///< as the file's header names it; empty = the whole row
  std::string reason;
  Severity severity = Severity::kError;
  std::size_t position = 0;  ///< in files of fixed columns, from 1; 0 = the whole record
};

class Problems {
 public:
  void Add(Problem problem);
  bool Empty() const { return list_.empty(); }
  std::size_t Count(Severity severity) const;
  bool HasErrors() const { return Count(Severity::kError) > 0; }
  const std::vector<Problem>& List() const { return list_; }

  /// One line each, ordered by file (in the order in which files first appear) and line. `nameErrors`: errors
  /// are named as warnings and notes always are.
  void Print(std::ostream& out, bool nameErrors = false) const;

 private:
  std::vector<Problem> list_;
  std::size_t counts_[3] = {};  // by severity
};

/// `file:line:position: severity: column 'name': reason`, without the parts that are missing.
std::string ToText(const Problem& problem, bool nameError = false);

}  // namespace zerbal::pack
