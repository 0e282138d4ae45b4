// Process entry. The main thread serves the window; a run thread does the work of a run.
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "app/process_entry.h"
#include "app/working_folder.h"

int main(int argc, char** argv) {
  std::vector<std::string> args(argv + 1, argv + argc);
  return orv::lf_runProcess(orv::lf_workingFolder(args), args);
}
