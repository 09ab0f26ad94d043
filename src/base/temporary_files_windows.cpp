#include "base/temporary_files.h"
#include "base/windows_calls.h"

namespace zerbal::base {

namespace {

/// Windows calls it in a thread of its own. An open file goes with its last handle, when the process ends.
BOOL WINAPI RemoveFiles(DWORD /*event*/) {
  ForEachTemporaryFile([](const wchar_t* path) { DeleteFileW(SystemPath(path).c_str()); });
  return FALSE;  // the next handler ends the process
}

}  // namespace

void RemoveTemporaryFilesOnSignals() {
  SetConsoleCtrlHandler(RemoveFiles, TRUE);
}

}  // namespace zerbal::base
