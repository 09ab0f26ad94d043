#include "zerbal-pack/check_report.h"

#include <ostream>

namespace zerbal::pack {

namespace {

constexpr std::size_t kShown = 20;  // findings of one kind

}  // namespace

void CheckReport::Add(const std::string& where, const std::string& kind, const std::string& text) {
  ++findings_;
  const std::string name = where + "\n" + kind;
  const auto [position, isNew] = positions_.try_emplace(name, kinds_.size());
  if (isNew)
    kinds_.emplace_back(where, Kind{});
  Kind& list = kinds_[position->second].second;
  if (list.lines.size() < kShown)
    list.lines.push_back(text);
  else
    ++list.more;
}

void CheckReport::AddNote(const std::string& where, const std::string& text) {
  notes_.push_back(where + ": " + text);
}

void CheckReport::AddCount(std::size_t count, const std::string& one, const std::string& many) {
  counts_.push_back(std::to_string(count) + " " + (count == 1 ? one : many));
}

void CheckReport::Print(std::ostream& out) const {
  for (const auto& [where, kind] : kinds_) {
    for (const std::string& line : kind.lines)
      out << where << ": " << line << "\n";
    if (kind.more > 0)
      out << where << ": ... and " << kind.more << " more like this\n";
  }
  for (const std::string& note : notes_)
    out << "Note: " << note << "\n";
  for (std::size_t i = 0; i < counts_.size(); ++i)
    out << (i == 0 ? "Found " : ", ") << counts_[i];
  if (!counts_.empty())
    out << ".\n";
  if (AllIsWell())
    out << "All is well.\n";
  else
    out << findings_ << (findings_ == 1 ? " thing is wrong.\n" : " things are wrong.\n");
}

}  // namespace zerbal::pack
