#include "zerbal-pack/problems.h"

#include <algorithm>
#include <map>
#include <ostream>

namespace zerbal::pack {

std::string ToText(const Problem& problem) {
  std::string text = problem.file;
  if (problem.line != 0)
    text.append(":").append(std::to_string(problem.line));
  text += ": ";
  if (!problem.column.empty())
    text.append("column '").append(problem.column).append("': ");
  return text.append(problem.reason);
}

void Problems::Print(std::ostream& out) const {
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
    out << ToText(*problem) << "\n";
}

}  // namespace zerbal::pack
