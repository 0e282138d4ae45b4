// A recording of the feed, as the stand-in's player reads it: the input is the file. What
// reads must come out of the recorder's writing the same, datagram for datagram.
#include <cstdint>
#include <string>

#include "fuzz_support.h"
#include "recording.h"

using namespace orv::standin;
namespace fuzz = orv::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Recording recording;
  try {
    recording = parseRecording(fuzz::textOf(data, size));
  } catch (const RecordingError&) {
    // Named by line; anything else leaving the parser is a finding.
    return 0;
  }
  Recording again;
  try {
    again = parseRecording(formatRecording(recording));
  } catch (const RecordingError& e) {
    fuzz::failCheck(std::string("a written recording reads back: ") + e.what());
  }
  fuzz::check(again.datagrams.size() == recording.datagrams.size(), "as many datagrams read back");
  for (std::size_t i = 0; i < recording.datagrams.size(); ++i) {
    fuzz::check(again.datagrams[i].port == recording.datagrams[i].port, "a datagram's port reads back");
    fuzz::check(again.datagrams[i].text == recording.datagrams[i].text, "a datagram's bytes read back");
  }
  fuzz::check(again.epoch.has_value() == recording.epoch.has_value(), "the epoch reads back");
  return 0;
}
