// Reads whole arrays from a netCDF file, with every failure an error that names the file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace zerbal::pack {

/// An open netCDF file, read-only.
class NetcdfFile {
 public:
  /// Throws MapSourceError when the file cannot be opened or is no netCDF file.
  explicit NetcdfFile(std::filesystem::path file);
  ~NetcdfFile();
  NetcdfFile(const NetcdfFile&) = delete;
  NetcdfFile& operator=(const NetcdfFile&) = delete;

  /// The whole of a one-dimensional variable, converted. Throws MapSourceError when it is missing, has not
  /// `count` values or cannot be converted.
  std::vector<std::int32_t> Ints(const char* name, std::size_t count) const;
  std::vector<double> Doubles(const char* name, std::size_t count) const;
  /// 16-bit values without sign, as the file's offsets are.
  std::vector<std::uint16_t> Offsets(const char* name, std::size_t count) const;
  std::int32_t Int(const char* name) const { return Ints(name, 1).front(); }

  /// The number of values of a one-dimensional variable.
  std::size_t Length(const char* name) const;

  [[noreturn]] void Fail(const std::string& reason) const;

 private:
  int Variable(const char* name, std::size_t count) const;
  void Check(int status, const char* name) const;

  std::filesystem::path file_;
  int id_ = -1;
};

}  // namespace zerbal::pack
