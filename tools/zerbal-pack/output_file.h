// A file that is there as a whole or not at all.
#pragma once

#include <filesystem>
#include <fstream>
#include <string_view>

namespace zerbal::pack {

/// Written beside its place under another name; Commit() puts it there. Without Commit() nothing remains.
/// Failures are std::filesystem::filesystem_error.
class OutputFile {
 public:
  explicit OutputFile(std::filesystem::path file);
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  void Write(std::string_view bytes);
  void Commit();

 private:
  void ThrowUnlessGood() const;

  std::filesystem::path file_;
  std::filesystem::path temporary_;
  std::ofstream stream_;
  bool committed_ = false;
};

}  // namespace zerbal::pack
