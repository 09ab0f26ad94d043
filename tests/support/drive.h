// Plays a script with zerbal-drive, in a process and a folder of its own.
#pragma once

#include <QFile>
#include <QProcess>
#include <filesystem>
#include <string>
#include <string_view>

namespace zerbal::test {

struct Played {
  int status = -1;      ///< exit status; -1 when the process crashed or did not end in time
  std::string answers;  ///< standard output
  std::string reasons;  ///< standard error
};

/// Plays `script` with `folder` as the working directory, for at most two minutes. The build defines
/// ZERBAL_DRIVE as the path of the driver.
inline Played Play(std::string_view script, const std::filesystem::path& folder) {
  constexpr int kTimeoutMs = 120000;
  QProcess process;
  process.setWorkingDirectory(QFile::decodeName(folder.c_str()));
  process.start(ZERBAL_DRIVE, QStringList());
  process.write(script.data(), static_cast<qint64>(script.size()));
  process.closeWriteChannel();
  Played played;
  if (!process.waitForFinished(kTimeoutMs)) {
    process.kill();
    process.waitForFinished();
  } else if (process.exitStatus() == QProcess::NormalExit) {
    played.status = process.exitCode();
  }
  played.answers = process.readAllStandardOutput().toStdString();
  played.reasons = process.readAllStandardError().toStdString();
  return played;
}

}  // namespace zerbal::test
