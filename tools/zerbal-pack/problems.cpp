#include "zerbal-pack/problems.h"

#include <algorithm>
#include <map>
#include <ostream>

namespace zerbal::pack {

namespace {

const char* SeverityText(Severity severity) {
  switch (severity) {
    case Severity::kError:
      return "error: ";
    case Severity::kWarning:
      return "warning: ";
    case Severity::kNote:
      return "note: ";
  }
  return "";
}

}  // namespace

std::string ToText(const Problem& problem, bool nameError) {
  std::string text = problem.file;
  if (problem.line != 0)
    text.append(":").append(std::to_string(problem.line));
  if (problem.position != 0)
    text.append(":").append(std::to_string(problem.position));
  text += ": ";
  if (nameError || problem.severity != Severity::kError)
    text += SeverityText(problem.severity);
  if (!problem.column.empty())
    text.append("column '").append(problem.column).append("': ");
  return text.append(problem.reason);
}

void Problems::Add(Problem problem) {
  ++counts_[static_cast<std::size_t>(problem.severity)];
  list_.push_back(std::move(problem));
}

std::size_t Problems::Count(Severity severity) const {
  return counts_[static_cast<std::size_t>(severity)];
}

void Problems::Print(std::ostream& out, bool nameErrors) const {
  std::map<std::string, std::size_t> order;
  for (const Problem& problem : list_)
    order.emplace(problem.file, order.size());
  std::vector<const Problem*> sorted;
  for (const Problem& problem : list_)
    sorted.push_back(&problem);
  std::stable_sort(sorted.begin(), sorted.end(), [&](const Problem* a, const Problem* b) {
    return a->file != b->file ? order[a->file] < order[b->file] : a->line < b->line;
  });
  for (const Problem* problem : sorted)
    out << ToText(*problem, nameErrors) << "\n";
}

}  // namespace zerbal::pack
