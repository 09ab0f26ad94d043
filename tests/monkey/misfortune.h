// What happens to the program's files while it runs: cut short, overwritten, replaced, gone.
#pragma once

#include <QString>
#include <filesystem>
#include <fstream>

#include "choice.h"

namespace zerbal::monkey {

/// Works in the working directory, with whole copies of the files in its folder "pristine".
class Misfortune {
 public:
  explicit Misfortune(Choice& choice) : choice_(choice) {}

  enum class Kind {
    // In the file itself; a program that has it open meets them when it reads on.
    kCutShort,
    kEmptied,
    kOverwritten,  ///< some bytes
    kPageSpoiled,  ///< a whole page
    kGivenBack,    ///< the whole contents
    // A new file under the old name, as other programs save; an open program keeps the old one.
    kReplacedByBytes,
    kReplacedByOther,
    kRemoved,
    kFolderInPlace,
    kRestored
  };
  struct Event {
    Kind kind = Kind::kRestored;
    std::filesystem::path file{};
    /// How a judge of the whole life recognises what may follow: begins with "database" or "settings file".
    QString Words() const;
  };

  /// Anything to any file.
  Event Any();
  /// To a database that is read again and again, in the file itself.
  Event ToWhatIsRead();
  /// To the schedule, which all dialogs that find flights read, in the file itself.
  Event ToTheSchedule();
  void Strike(const Event& event);

 private:
  Kind InPlace();
  void StrikeInPlace(const Event& event, int size);
  void Overwrite(std::fstream& file, int size);
  void SpoilPage(std::fstream& file, int size);
  std::string AnyBytes(int size);

  Choice& choice_;
};

}  // namespace zerbal::monkey
