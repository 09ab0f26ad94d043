// Corruption of the program's files while it runs: they are truncated, overwritten, replaced or removed.
#pragma once

#include <QString>
#include <filesystem>
#include <fstream>

#include "random_choice.h"

namespace zerbal::monkey {

struct FileCorruption {
  enum class Kind {
    // Changes of the file itself, which a program that has it open reads.
    kTruncated,
    kEmptied,
    kPartlyOverwritten,
    kPageOverwritten,
    kContentsRestored,
    // A new file under the same name; a program that has the old one open keeps reading that.
    kReplacedByBytes,
    kReplacedByDatabase,
    kRemoved,
    kReplacedByFolder,
    kRestored
  };
  Kind kind = Kind::kRestored;
  std::filesystem::path file{};
  /// One line for the action log. It begins with "database" or "settings file", which SessionRunner reads.
  QString Description() const;
};

/// Chooses corruptions and applies them in the working directory, which is a WorldFolder.
class FileCorrupter {
 public:
  explicit FileCorrupter(RandomChoice& choice) : choice_(choice) {}

  /// Any kind and any file.
  FileCorruption ChooseAny();
  /// A change in place of a database that the program reads again and again.
  FileCorruption ChooseForFilesInUse();
  /// A change in place of the schedule, which every flight finder reads.
  FileCorruption ChooseForSchedule();
  void Apply(const FileCorruption& corruption);

 private:
  FileCorruption::Kind ChooseKindInPlace();
  void ApplyInPlace(const FileCorruption& corruption, int size);
  void OverwriteParts(std::fstream& file, int size);
  void OverwritePage(std::fstream& file, int size);
  std::string RandomBytes(int size);

  RandomChoice& choice_;
};

}  // namespace zerbal::monkey
