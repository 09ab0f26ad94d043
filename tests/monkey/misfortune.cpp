#include "misfortune.h"

#include <algorithm>
#include <array>
#include <system_error>

#include "support/temp_folder.h"
#include "world_files.h"

namespace zerbal::monkey {
namespace {

namespace fs = std::filesystem;
using Kind = Misfortune::Kind;

constexpr int kPageSize = 4096;

void Write(std::fstream& file, int at, std::string_view bytes) {
  file.seekp(at);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

}  // namespace

QString Misfortune::Event::Words() const {
  static const char* const kWords[] = {"cut short",
                                       "emptied",
                                       "overwritten in part",
                                       "page spoiled",
                                       "given back",
                                       "replaced by rubbish",
                                       "replaced by another",
                                       "removed",
                                       "replaced by a folder",
                                       "restored"};
  return QString("%1 %2 %3")
      .arg(file == kSettingsFile ? "settings file" : "database", QString::fromStdString(file.string()),
           kWords[static_cast<int>(kind)]);
}

Misfortune::Event Misfortune::Any() {
  const fs::path file = choice_.OneIn(3) ? kSettingsFile : choice_.Of(kDatabaseFiles);
  return {static_cast<Kind>(choice_.Below(static_cast<int>(Kind::kRestored) + 1)), file};
}

Misfortune::Event Misfortune::ToWhatIsRead() {
  // All but the first, which is read at the start only.
  const fs::path& file = kDatabaseFiles[static_cast<std::size_t>(choice_.Between(1, 5))];
  return {InPlace(), file};
}

Misfortune::Event Misfortune::ToTheSchedule() {
  return {InPlace(), kScheduleFile};
}

Kind Misfortune::InPlace() {
  // Cut off is for good for a program that has met it; what is overwritten may be given back.
  constexpr Kind kKinds[] = {Kind::kCutShort,    Kind::kEmptied,     Kind::kOverwritten, Kind::kOverwritten,
                             Kind::kOverwritten, Kind::kPageSpoiled, Kind::kPageSpoiled, Kind::kPageSpoiled,
                             Kind::kGivenBack,   Kind::kGivenBack};
  return choice_.Of(kKinds);
}

std::string Misfortune::AnyBytes(int size) {
  std::string bytes(static_cast<std::size_t>(size), ' ');
  for (char& byte : bytes)
    byte = static_cast<char>(choice_.Below(256));
  return bytes;
}

void Misfortune::Overwrite(std::fstream& file, int size) {
  for (int spots = choice_.Between(1, 40); spots > 0; --spots) {
    const int at = choice_.Below(size);
    Write(file, at, AnyBytes(choice_.Length(64)));
  }
}

void Misfortune::SpoilPage(std::fstream& file, int size) {
  const int pages = std::max(1, size / kPageSize);
  const int at = choice_.Below(pages) * kPageSize;
  std::string bytes(kPageSize, '\0');
  const int contents = choice_.Below(3);
  if (contents == 1) {
    bytes = AnyBytes(kPageSize);
  } else if (contents == 2) {
    file.seekg(std::streamoff{kPageSize} * choice_.Below(pages));
    file.read(bytes.data(), kPageSize);
    file.clear();
  }
  Write(file, at, bytes);
}

void Misfortune::StrikeInPlace(const Event& event, int size) {
  std::error_code error;
  if (event.kind == Kind::kEmptied) {
    fs::resize_file(event.file, 0, error);
  } else if (event.kind == Kind::kCutShort) {
    const int length = choice_.Below(size);
    fs::resize_file(event.file,
                    static_cast<unsigned>(choice_.OneIn(2) ? length : length - length % kPageSize), error);
  } else {
    std::fstream file(event.file, std::ios::in | std::ios::out | std::ios::binary);
    if (event.kind == Kind::kGivenBack)
      Write(file, 0, test::ReadBytes(kPristine / event.file));
    else if (size > 0 && event.kind == Kind::kPageSpoiled)
      SpoilPage(file, size);
    else if (size > 0)
      Overwrite(file, size);
  }
}

void Misfortune::Strike(const Event& event) {
  std::error_code error;  // bad luck may fail, too
  const fs::path& file = event.file;
  if (event.kind <= Kind::kGivenBack) {
    if (fs::is_regular_file(file, error))
      StrikeInPlace(event, static_cast<int>(fs::file_size(file, error)));
    return;
  }
  const fs::path fresh = "fresh";
  fs::remove_all(fresh, error);
  if (event.kind == Kind::kReplacedByBytes)
    test::WriteBytes(fresh, AnyBytes(choice_.Length(20000)));
  else if (event.kind == Kind::kReplacedByOther)
    fs::copy_file(kPristine / choice_.Of(kDatabaseFiles), fresh, error);
  else if (event.kind == Kind::kRestored)
    fs::copy_file(kPristine / file, fresh, error);
  else if (event.kind == Kind::kFolderInPlace)
    fs::create_directory(fresh, error);
  fs::remove_all(file, error);
  if (event.kind != Kind::kRemoved)
    fs::rename(fresh, file, error);
}

}  // namespace zerbal::monkey
