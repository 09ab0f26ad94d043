#include "file_corruption.h"

#include <algorithm>
#include <array>
#include <system_error>

#include "support/temp_folder.h"
#include "world_files.h"

namespace zerbal::monkey {
namespace {

namespace fs = std::filesystem;
using Kind = FileCorruption::Kind;

constexpr int kPageSize = 4096;  // bytes

void Write(std::fstream& file, int at, std::string_view bytes) {
  file.seekp(at);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

QString FileCorruption::Description() const {
  static const char* const kKinds[] = {"truncated",
                                       "emptied",
                                       "partly overwritten",
                                       "page overwritten",
                                       "contents restored",
                                       "replaced by random bytes",
                                       "replaced by a database",
                                       "removed",
                                       "replaced by a folder",
                                       "restored"};
  return QString("%1 %2 %3")
      .arg(file == kSettingsFile ? "settings file" : "database", QString::fromStdString(file.string()),
           kKinds[static_cast<int>(kind)]);
}

FileCorruption FileCorrupter::ChooseAny() {
  const fs::path file = choice_.OneIn(3) ? kSettingsFile : choice_.ElementOf(kDatabaseFiles);
  return {static_cast<Kind>(choice_.Below(static_cast<int>(Kind::kRestored) + 1)), file};
}

FileCorruption FileCorrupter::ChooseForFilesInUse() {
  // All but the first, which is read at the start only.
  const fs::path& file = kDatabaseFiles[static_cast<std::size_t>(choice_.Between(1, 5))];
  return {ChooseKindInPlace(), file};
}

FileCorruption FileCorrupter::ChooseForSchedule() {
  return {ChooseKindInPlace(), kScheduleFile};
}

Kind FileCorrupter::ChooseKindInPlace() {
  // A program that has read a truncated file does not recover, so overwriting is more frequent.
  constexpr Kind kKinds[] = {Kind::kTruncated,         Kind::kEmptied,           Kind::kPartlyOverwritten,
                             Kind::kPartlyOverwritten, Kind::kPartlyOverwritten, Kind::kPageOverwritten,
                             Kind::kPageOverwritten,   Kind::kPageOverwritten,   Kind::kContentsRestored,
                             Kind::kContentsRestored};
  return choice_.ElementOf(kKinds);
}

std::string FileCorrupter::RandomBytes(int size) {
  std::string bytes(static_cast<std::size_t>(size), ' ');
  for (char& byte : bytes)
    byte = static_cast<char>(choice_.Below(256));
  return bytes;
}

void FileCorrupter::OverwriteParts(std::fstream& file, int size) {
  for (int parts = choice_.Between(1, 40); parts > 0; --parts) {
    const int at = choice_.Below(size);
    Write(file, at, RandomBytes(choice_.Length(64)));
  }
}

void FileCorrupter::OverwritePage(std::fstream& file, int size) {
  const int pages = std::max(1, size / kPageSize);
  const int at = choice_.Below(pages) * kPageSize;
  std::string bytes(kPageSize, '\0');
  const int contents = choice_.Below(3);
  if (contents == 1) {
    bytes = RandomBytes(kPageSize);
  } else if (contents == 2) {
    file.seekg(std::streamoff{kPageSize} * choice_.Below(pages));
    file.read(bytes.data(), kPageSize);
    file.clear();
  }
  Write(file, at, bytes);
}

void FileCorrupter::ApplyInPlace(const FileCorruption& corruption, int size) {
  std::error_code error;
  if (corruption.kind == Kind::kEmptied) {
    fs::resize_file(corruption.file, 0, error);
  } else if (corruption.kind == Kind::kTruncated) {
    const int length = choice_.Below(size);
    fs::resize_file(corruption.file,
                    static_cast<unsigned>(choice_.OneIn(2) ? length : length - length % kPageSize), error);
  } else {
    std::fstream file(corruption.file, std::ios::in | std::ios::out | std::ios::binary);
    if (corruption.kind == Kind::kContentsRestored)
      Write(file, 0, test::ReadBytes(kIntactCopies / corruption.file));
    else if (size > 0 && corruption.kind == Kind::kPageOverwritten)
      OverwritePage(file, size);
    else if (size > 0)
      OverwriteParts(file, size);
  }
}

void FileCorrupter::Apply(const FileCorruption& corruption) {
  std::error_code error;  // ignored: an earlier corruption may prevent this one
  const fs::path& file = corruption.file;
  if (corruption.kind <= Kind::kContentsRestored) {
    if (fs::is_regular_file(file, error))
      ApplyInPlace(corruption, static_cast<int>(fs::file_size(file, error)));
    return;
  }
  const fs::path fresh = "fresh";
  fs::remove_all(fresh, error);
  if (corruption.kind == Kind::kReplacedByBytes)
    test::WriteBytes(fresh, RandomBytes(choice_.Length(20000)));
  else if (corruption.kind == Kind::kReplacedByDatabase)
    fs::copy_file(kIntactCopies / choice_.ElementOf(kDatabaseFiles), fresh, error);
  else if (corruption.kind == Kind::kRestored)
    fs::copy_file(kIntactCopies / file, fresh, error);
  else if (corruption.kind == Kind::kReplacedByFolder)
    fs::create_directory(fresh, error);
  fs::remove_all(file, error);
  if (corruption.kind != Kind::kRemoved)
    fs::rename(fresh, file, error);
}

}  // namespace zerbal::monkey
