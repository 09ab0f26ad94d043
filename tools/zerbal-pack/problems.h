// Faults in a planner's files, collected so that one run reports all.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace zerbal::pack {

struct Problem {
  std::string file;
  std::size_t line = 0;  ///< from 1; 0 = the whole file
  std::string column;    ///< as the file's header names it; empty = the whole row
  std::string reason;
};

class Problems {
 public:
  void Add(Problem problem) { list_.push_back(std::move(problem)); }
  bool Empty() const { return list_.empty(); }
  const std::vector<Problem>& List() const { return list_; }

  /// One line each, ordered by file (in the order in which files first appear) and line.
  void Print(std::ostream& out) const;

 private:
  std::vector<Problem> list_;
};

/// `file:line: column 'name': reason`, without the parts that are missing.
std::string ToText(const Problem& problem);

}  // namespace zerbal::pack
