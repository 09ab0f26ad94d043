#include "app/run_program.h"
#include "jet/mapped_file_guard.h"

int main(int argc, char** argv) {
  zerbal::jet::InstallMappedFileGuard();
  return zerbal::app::RunProgram(argc, argv);
}
