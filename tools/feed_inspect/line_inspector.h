#pragma once
// One traffic line through the decoder, and what came of it as a JSON object: the message
// that reached the engine's queue, a silent drop, or the log text of a line that failed.
#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>
#include <string_view>

#include "feed/traffic_decoder.h"
#include "inspect_options.h"
#include "log_tail.h"

namespace orv::inspect {

class LineInspector {
 public:
  // Sets the decoder's state, the settings it reads and the queue it posts to; takes the log over.
  explicit LineInspector(const DecodingState& state);

  // The object for the next line; "line" counts the lines from 1.
  nlohmann::ordered_json inspect(std::string_view line);

 private:
  TrafficDecoder decoder_;
  LogTail log_;
  std::uint64_t lineNumber_ = 0;
};

// The fields of a decoded message, by their names in TrafficMsg; attitude in radians, an
// absent one null.
nlohmann::ordered_json messageFields(const TrafficMsg& msg);

// The object as one line of text; text fields may hold any bytes, and what is no UTF-8 shows as U+FFFD.
std::string jsonLine(const nlohmann::ordered_json& object);

}  // namespace orv::inspect
