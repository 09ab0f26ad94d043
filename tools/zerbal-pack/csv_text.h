// CSV files that are small enough to be made in memory.
#pragma once

#include <filesystem>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/file_replacement.h"
#include "zerbal-pack/csv.h"

namespace zerbal::pack {

/// Records in the form that `export` writes: texts in quotes, numbers without.
class CsvText {
 public:
  explicit CsvText(std::initializer_list<std::string_view> titles) { AddTitles(titles); }
  explicit CsvText(const std::vector<std::string>& titles) { AddTitles(titles); }

  void AddText(std::string_view text) {
    BeginField();
    AppendCsvText(text, text_);
  }
  void AddNumber(std::string_view number) {
    BeginField();
    text_ += number;
  }
  void AddNull() { BeginField(); }
  void EndRecord() {
    text_ += kCsvLineEnd;
    first_ = true;
  }
  /// All that was added since the last Clear().
  const std::string& Text() const { return text_; }
  /// After the end of a record.
  void Clear() { text_.clear(); }

 private:
  template <typename Titles>
  void AddTitles(const Titles& titles) {
    for (const std::string_view title : titles)
      AddText(title);
    EndRecord();
  }

  void BeginField() { text_ += std::exchange(first_, false) ? "" : ","; }

  std::string text_;
  bool first_ = true;
};

/// Writes `names[i]` with the contents `texts[i]` into `folder`, which is created when it is missing. Each
/// file is complete or unchanged, and none changes before all are written. Throws base::FileError.
inline void WriteTogether(const std::filesystem::path& folder,
                          const std::vector<std::pair<std::string_view, const CsvText*>>& files) {
  std::filesystem::create_directories(folder);
  std::vector<std::unique_ptr<base::FileReplacement>> outputs;
  for (const auto& [name, csv] : files) {
    outputs.push_back(std::make_unique<base::FileReplacement>(folder / name));
    outputs.back()->Write(csv->Text());
  }
  for (const auto& output : outputs)
    output->Commit();
}

}  // namespace zerbal::pack
