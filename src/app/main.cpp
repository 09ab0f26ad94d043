#include "app/run_program.h"

int main(int argc, char** argv) {
  return zerbal::app::RunProgram(argc, argv);
}
