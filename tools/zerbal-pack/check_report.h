// The findings of a check, and how they are printed.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zerbal::pack {

/// Findings of one kind after the first few are only counted.
class CheckReport {
 public:
  /// `where` names the file, and the table where there is one; `kind` is the rule that was broken.
  void Add(const std::string& where, const std::string& kind, const std::string& text);
  /// Adds information that is not a fault.
  void AddNote(const std::string& where, const std::string& text);
  /// `one` and `many` name what is counted: "region" and "regions".
  void AddCount(std::size_t count, const std::string& one, const std::string& many);

  bool AllIsWell() const { return findings_ == 0; }
  void Print(std::ostream& out) const;

 private:
  struct Kind {
    std::vector<std::string> lines;
    std::size_t more = 0;
  };
  std::vector<std::pair<std::string, Kind>> kinds_;  // where and kind, in order of their first finding
  std::map<std::string, std::size_t> positions_;     // in kinds_
  std::vector<std::string> notes_;
  std::vector<std::string> counts_;
  std::size_t findings_ = 0;
};

}  // namespace zerbal::pack
