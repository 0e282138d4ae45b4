#pragma once
// The simulator drop run: while the recording plays, the stand-in simulator loses the
// program's session at random moments. Each time the run must end with a SimConnect error and
// restart after its countdown, the traffic must flow again, every aircraft in the simulator
// must be removed once, and threads, open files and memory must be what they were.
namespace orv::faultrun {

struct SimRunOptions {
  int drops = 1;
  unsigned seed = 0;  // 0: a random one
  bool keep = false;  // keep the working folder and its log
};

// 0 when every check held; the figures and any failed check are printed.
int runSimDrops(const SimRunOptions& options);

}  // namespace orv::faultrun
