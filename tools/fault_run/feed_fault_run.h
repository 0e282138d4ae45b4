#pragma once
// The feed fault run: the recording at its pace, mixed with repeated, broken, cut, overlong and
// held-back datagrams, and a flood of broken ones at thousands a second. The program must keep
// running, log each broken line as its reader says, keep its memory flat, and the good traffic
// must still reach the engine.
namespace orv::faultrun {

struct FeedRunOptions {
  double seconds = 8;  // of playing, after the program has reached its running stage
  int floodPerSecond = 3000;
  double speed = 1;   // of the recording
  bool keep = false;  // keep the working folder and its log
};

// 0 when every check held; the figures and any failed check are printed.
int runFeedFaults(const FeedRunOptions& options);

}  // namespace orv::faultrun
