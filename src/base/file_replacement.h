// Replacing a file as a whole: whatever happens in between, it holds its old or its new contents.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/file_steps.h"

namespace zerbal::base {

/// The new contents of a file, in a temporary file (`.zerbal-*.tmp`) beside it until Commit puts them in the
/// file's place. Without Commit() nothing remains. Every failure is a FileError that names `target`.
class FileReplacement {
 public:
  explicit FileReplacement(const std::filesystem::path& target, FileSteps& steps = SystemFileSteps());
  ~FileReplacement();
  FileReplacement(const FileReplacement&) = delete;
  FileReplacement& operator=(const FileReplacement&) = delete;

  /// For files that a user names: follows a symbolic link, which stays, and keeps permissions, owner and
  /// group of an existing file. What ChangeFile does not change is an error, and so is what is no regular
  /// file.
  static FileReplacement OfUserFile(const std::filesystem::path& file, FileSteps& steps = SystemFileSteps());

  /// Appends.
  void Write(std::string_view bytes);
  /// Writes at any position; bytes that are never written before others are zeros.
  void WriteAt(std::uint64_t position, std::string_view bytes);

  /// Flushes the new contents to the disk, renames them over the target and flushes the folder. When only the
  /// last of these fails, the target already holds the new contents, but may lose them in a power cut.
  void Commit();

 private:
  friend bool ChangeFile(const std::filesystem::path& file,
                         const std::function<std::string(const std::string& old)>& change, FileSteps& steps);
  struct State;
  explicit FileReplacement(std::unique_ptr<State> state);

  std::unique_ptr<State> state_;
};

/// All bytes of a regular file; nullopt when it is not one or cannot be read.
std::optional<std::string> ReadFile(const std::filesystem::path& file, FileSteps& steps = SystemFileSteps());

/// Reads `file` (a missing one counts as empty), lets `change` make the new contents and replaces the file by
/// them. A symbolic link is followed and stays; permissions, owner and group are kept. Writers on one folder
/// take turns, so that no change is lost. False when a step failed; the file then holds its old contents,
/// except as FileReplacement::Commit says. A file or folder without any write permission is not changed for
/// the superuser either.
bool ChangeFile(const std::filesystem::path& file,
                const std::function<std::string(const std::string& old)>& change, FileSteps& steps);

}  // namespace zerbal::base
