// A temporary folder for a test, removed afterwards.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zerbal::test {

/// Its name contains blanks and a letter outside of ASCII on purpose.
class TempFolder {
 public:
  TempFolder() {
    std::random_device random;
    do {
      path_ = std::filesystem::temp_directory_path() / u8"zerbal test \u00FC ";
      path_ += std::to_string(random());
    } while (!std::filesystem::create_directory(path_));  // throws when the system does not allow it
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;
  ~TempFolder() {
    std::error_code error;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, error);
    std::filesystem::remove_all(path_, error);
  }

  const std::filesystem::path& Path() const { return path_; }
  std::filesystem::path operator/(const std::filesystem::path& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

/// The names of the files and folders in `folder`, sorted.
inline std::vector<std::string> NamesIn(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

inline void WriteBytes(const std::filesystem::path& file, std::string_view bytes) {
  std::ofstream stream(file, std::ios::binary);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!stream.flush())
    throw std::runtime_error("cannot write " + file.string());
}

inline std::string ReadBytes(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream)
    throw std::runtime_error("cannot read " + file.string());
  // Not by iterators, which take a second per 10 MB under the sanitizers.
  stream.seekg(0, std::ios::end);
  std::string bytes(static_cast<std::size_t>(stream.tellg()), '\0');
  stream.seekg(0);
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!stream)
    throw std::runtime_error("cannot read " + file.string());
  return bytes;
}

}  // namespace zerbal::test
