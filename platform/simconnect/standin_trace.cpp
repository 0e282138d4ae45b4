#include "platform/simconnect/standin_trace.h"

#include <fmt/format.h>

#include <cmath>
#include <stdexcept>
#include <string_view>

namespace orv::standin::detail {
namespace {

constexpr double kDegreesPerRadian = 57.29577951308232;

// RFC 4180: a field with a comma, quote or line break is quoted, quotes doubled.
std::string csvField(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string out = "\"";
  for (char c : text) {
    if (c == '"') out += '"';
    out += c;
  }
  out += '"';
  return out;
}

}  // namespace

const char* const kTraceHeader =
    "time_s,frame,object_id,callsign,title,latitude,longitude,altitude_ft,agl_ft,pitch_deg,bank_deg,heading_deg,"
    "on_ground,lights,flaps_pct,gear_down,spoilers_pct,throttle_pct,engines_on,vs_fps,tas_kt";

void openTrace(Trace& trace, const std::filesystem::path& file, int everyFrames) {
  closeTrace(trace);
  trace.out.open(file, std::ios::binary | std::ios::trunc);
  if (!trace.out) throw std::runtime_error(fmt::format("trace file '{}' cannot be written", file.string()));
  trace.out << kTraceHeader << '\n';
  trace.file = file;
  trace.everyFrames = everyFrames < 1 ? 1 : everyFrames;
}

void closeTrace(Trace& trace) {
  if (trace.out.is_open()) trace.out.close();
  trace.everyFrames = 0;
}

bool traceDue(const Trace& trace, std::uint64_t frame) {
  return trace.everyFrames > 0 && frame % static_cast<std::uint64_t>(trace.everyFrames) == 0;
}

void writeTraceRows(Trace& trace, double timeSeconds, std::uint64_t frame, const std::vector<ObjectState>& objects) {
  fmt::memory_buffer buffer;
  for (const auto& o : objects) {
    fmt::format_to(std::back_inserter(buffer),
                   "{:.3f},{},{},{},{},{:.8f},{:.8f},{:.2f},{:.2f},{:.3f},{:.3f},{:.3f},{},{},{:.1f},{},{:.1f},{:.1f},{},"
                   "{:.2f},{:.1f}\n",
                   timeSeconds, frame, o.objectId, csvField(o.atcId), csvField(o.title), o.latitude, o.longitude,
                   o.altitudeFt, o.altitudeFt - o.groundElevationFt, o.pitchRad * kDegreesPerRadian,
                   o.bankRad * kDegreesPerRadian, o.headingRad * kDegreesPerRadian, o.onGround ? 1 : 0, o.lights,
                   o.flapsPercent, o.gearDown ? 1 : 0, o.spoilersPercent, o.throttlePercent[0],
                   o.enginesRunning ? 1 : 0, o.verticalSpeedFps, o.trueAirspeedKt);
  }
  trace.out.write(buffer.data(), static_cast<std::streamsize>(buffer.size()));
}

}  // namespace orv::standin::detail
