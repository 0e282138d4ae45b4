// fault_run: Orvane's whole process under faults, inside this process as main() would run it.
//
//   fault_run feed [--seconds S] [--flood N] [--speed X] [--keep]
//       the recording mixed with broken, cut, overlong, repeated and held-back datagrams and a
//       flood of N broken ones a second (default 3000), for S seconds (default 8)
//   fault_run sim [--drops N] [--seed S] [--keep]
//       the stand-in simulator loses the session N times (default 1) at random moments
//
// Prints its figures and checks; exits 0 when every check held, 1 when one failed, 2 on a
// mistake in the command line.
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string_view>

#include "feed_fault_run.h"
#include "sim_drop_run.h"

using namespace orv::faultrun;

namespace {

[[noreturn]] void usage() {
  std::fprintf(stderr,
               "usage: fault_run feed [--seconds S] [--flood N] [--speed X] [--keep]\n"
               "       fault_run sim [--drops N] [--seed S] [--keep]\n");
  std::exit(2);
}

double number(int& i, int argc, char** argv) {
  if (i + 1 >= argc) usage();
  char* end = nullptr;
  const double value = std::strtod(argv[++i], &end);
  if (*end != '\0' || !(value > 0)) usage();
  return value;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) usage();
  const std::string_view mode = argv[1];
  try {
    if (mode == "feed") {
      FeedRunOptions o;
      for (int i = 2; i < argc; ++i) {
        const std::string_view a = argv[i];
        if (a == "--seconds")
          o.seconds = number(i, argc, argv);
        else if (a == "--flood")
          o.floodPerSecond = static_cast<int>(number(i, argc, argv));
        else if (a == "--speed")
          o.speed = number(i, argc, argv);
        else if (a == "--keep")
          o.keep = true;
        else
          usage();
      }
      return runFeedFaults(o);
    }
    if (mode == "sim") {
      SimRunOptions o;
      for (int i = 2; i < argc; ++i) {
        const std::string_view a = argv[i];
        if (a == "--drops")
          o.drops = static_cast<int>(number(i, argc, argv));
        else if (a == "--seed")
          o.seed = static_cast<unsigned>(number(i, argc, argv));
        else if (a == "--keep")
          o.keep = true;
        else
          usage();
      }
      return runSimDrops(o);
    }
  } catch (const std::exception& e) {
    std::fprintf(stderr, "fault_run: %s\n", e.what());
    return 1;
  }
  usage();
}
