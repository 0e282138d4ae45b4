#pragma once
// The child's side of the kill test: it saves the program's files in a loop until it is killed.
// Around each save it notes in memory shared with the parent which value is being written and
// which was written last, so that the parent can tell old from new and both from a cut file.
#include <atomic>
#include <cstdint>

namespace orv::savekill {

// One file's progress: `completed` is the value its last finished save wrote, `inProgress` the
// value of the save under way (equal to completed between saves).
struct FileProgress {
  std::atomic<std::int64_t> completed{-1};
  std::atomic<std::int64_t> inProgress{-1};
};

// Lives in a shared anonymous mapping: both processes see it.
struct SharedProgress {
  FileProgress parameters;  // LAST_EPOCH_TIME: in parameters.xml
  FileProgress objectList;  // the callsign generation of ObjectIdList.txt
  std::atomic<std::int64_t> savesStarted{0};
  std::atomic<bool> ready{false};  // the child has read the parameters and saves now
};

inline constexpr int kObjectListLines = 20;

// Never returns. The user folder and the working folder are set by the parent.
[[noreturn]] void runSaver(SharedProgress& progress);

}  // namespace orv::savekill
