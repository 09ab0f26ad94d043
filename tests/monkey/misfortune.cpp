#include "misfortune.h"

#include <array>
#include <fstream>
#include <system_error>

#include "support/temp_folder.h"
#include "world_files.h"

namespace zerbal::monkey {
namespace fs = std::filesystem;

QString Misfortune::Event::Words() const {
  static const char* const kWords[] = {
      "cut short",           "emptied", "overwritten in part",  "replaced by rubbish",
      "replaced by another", "removed", "replaced by a folder", "restored"};
  return QString("%1 %2 %3")
      .arg(file == kSettingsFile ? "settings file" : "database", QString::fromStdString(file.string()),
           kWords[static_cast<int>(kind)]);
}

Misfortune::Event Misfortune::Next() {
  Event event;
  event.file = choice_.OneIn(3) ? kSettingsFile : kDatabaseFiles[static_cast<std::size_t>(choice_.Below(6))];
  event.kind = static_cast<Event::Kind>(choice_.Below(static_cast<int>(Event::Kind::kRestored) + 1));
  return event;
}

std::string Misfortune::AnyBytes(int size) {
  std::string bytes(static_cast<std::size_t>(size), ' ');
  for (char& byte : bytes)
    byte = static_cast<char>(choice_.Below(256));
  return bytes;
}

void Misfortune::Overwrite(const fs::path& file) {
  std::error_code error;
  const auto size = static_cast<int>(fs::file_size(file, error));
  if (error || size == 0)
    return;
  std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
  for (int spots = choice_.Between(1, 40); spots > 0; --spots) {
    stream.seekp(choice_.Below(size));
    const std::string bytes = AnyBytes(choice_.Length(64));
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
}

void Misfortune::Strike(const Event& event) {
  using Kind = Event::Kind;
  const fs::path& file = event.file;
  std::error_code error;  // bad luck may fail, too
  if (event.kind == Kind::kOverwritten) {
    Overwrite(file);
    return;
  }
  if (event.kind == Kind::kCutShort || event.kind == Kind::kEmptied) {
    const auto size = fs::is_regular_file(file, error) ? static_cast<int>(fs::file_size(file, error)) : 0;
    if (size > 0)
      fs::resize_file(file, event.kind == Kind::kEmptied ? 0U : static_cast<unsigned>(choice_.Below(size)),
                      error);
    return;
  }
  // The others come as a new file under the old name, as other programs save.
  const fs::path fresh = "fresh";
  fs::remove_all(fresh, error);
  if (event.kind == Kind::kReplacedByBytes)
    test::WriteBytes(fresh, AnyBytes(choice_.Length(20000)));
  else if (event.kind == Kind::kReplacedByOther)
    fs::copy_file(kPristine / kDatabaseFiles[static_cast<std::size_t>(choice_.Below(6))], fresh, error);
  else if (event.kind == Kind::kRestored)
    fs::copy_file(kPristine / file, fresh, error);
  else if (event.kind == Kind::kFolderInPlace)
    fs::create_directory(fresh, error);
  fs::remove_all(file, error);
  if (event.kind != Kind::kRemoved)
    fs::rename(fresh, file, error);
}

}  // namespace zerbal::monkey
