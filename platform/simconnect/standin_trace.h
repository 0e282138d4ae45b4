#pragma once
// The trace of the stand-in: every object's state, every frame or every N frames, as CSV, for
// later measurements of motion quality and for maps.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <vector>

#include "platform/simconnect/standin_control.h"

namespace orv::standin::detail {

struct Trace {
  std::ofstream out;
  std::filesystem::path file;
  int everyFrames = 0;  // 0: no trace
};

// The first line of every trace file.
extern const char* const kTraceHeader;

// Opens the file and writes the header. Throws std::runtime_error when it cannot be written.
void openTrace(Trace& trace, const std::filesystem::path& file, int everyFrames);
void closeTrace(Trace& trace);
bool traceDue(const Trace& trace, std::uint64_t frame);
// One line per object; onGround and the ground height are filled in by the caller.
void writeTraceRows(Trace& trace, double timeSeconds, std::uint64_t frame, const std::vector<ObjectState>& objects);

}  // namespace orv::standin::detail
