// What happens to the program's files while it runs: cut short, replaced, gone.
#pragma once

#include <QString>
#include <filesystem>

#include "choice.h"

namespace zerbal::monkey {

/// Works in the working directory, with whole copies of the files in its folder "pristine".
class Misfortune {
 public:
  explicit Misfortune(Choice& choice) : choice_(choice) {}

  struct Event {
    enum class Kind {
      kCutShort,
      kEmptied,
      kOverwritten,  ///< some bytes in place
      kReplacedByBytes,
      kReplacedByOther,
      kRemoved,
      kFolderInPlace,
      kRestored
    };
    Kind kind = Kind::kRestored;
    std::filesystem::path file;
    /// How a judge of the whole life recognises what may follow: begins with "database" or "settings file".
    QString Words() const;
  };
  Event Next();
  void Strike(const Event& event);

 private:
  void Overwrite(const std::filesystem::path& file);
  std::string AnyBytes(int size);

  Choice& choice_;
};

}  // namespace zerbal::monkey
