#pragma once
// The checks of a fault run, printed as they are made, and how many failed.
#include <cstdio>
#include <string>

namespace orv::faultrun {

struct Verdict {
  int failures = 0;
  void check(bool holds, const std::string& what) {
    std::printf("  %s %s\n", holds ? "ok  " : "FAIL", what.c_str());
    if (!holds) ++failures;
  }
};

}  // namespace orv::faultrun
