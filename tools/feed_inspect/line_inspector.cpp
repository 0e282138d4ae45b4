#include "line_inspector.h"

#include <vector>

#include "engine/traffic_queue.h"
#include "foundation/parameter_store.h"
#include "foundation/parameters.h"
#include "refdata/code_tables.h"

namespace orv::inspect {

namespace {

nlohmann::ordered_json optionalValue(const OptionalDouble& v) {
  return v ? nlohmann::ordered_json(v.value) : nlohmann::ordered_json(nullptr);
}

nlohmann::ordered_json codeValue(const FixedCode<3>& code) {
  return code ? nlohmann::ordered_json(code.str()) : nlohmann::ordered_json(nullptr);
}

}  // namespace

LineInspector::LineInspector(const DecodingState& state) {
  decoder_.setUserPosition(state.userLat, state.userLon);
  gf_setRange(state.rangeNm);
  decoder_.qnh = state.qnh;
  if (state.park)
    decoder_.setParkAirport(state.park->lat, state.park->lon, state.park->elevationFt);
  else
    decoder_.clearParkAirport();
  AIRBORNE_ONLY.set(state.airborneOnly);
  gTrafficQueue.clear();
  gTrafficQueue.setEnabled(true);
}

nlohmann::ordered_json LineInspector::inspect(std::string_view line) {
  decoder_.processLine(line);
  nlohmann::ordered_json out;
  out["line"] = ++lineNumber_;
  const std::size_t queued = gTrafficQueue.size();
  const std::string logText = log_.take();
  if (queued > 0) {
    std::vector<TrafficMsg> taken(queued);
    gTrafficQueue.take(queued, taken.data());
    out["kind"] = "msg";
    out.update(messageFields(taken.back()));
  } else {
    out["kind"] = logText.empty() ? "drop" : "log";
  }
  if (!logText.empty()) out["log"] = logText;
  return out;
}

nlohmann::ordered_json messageFields(const TrafficMsg& msg) {
  const Sample& s = msg.sample;
  return {{"hexid", msg.hexid},
          {"cs", msg.ident.cs},
          {"reg", msg.ident.reg},
          {"model", modelCode(msg.ident.code.acType)},
          {"from", codeValue(msg.ident.from)},
          {"to", codeValue(msg.ident.to)},
          {"timestamp", msg.timestamp},
          {"lat", s.lat},
          {"lon", s.lon},
          {"alt", s.alt},
          {"gs", s.gs},
          {"track", s.track},
          {"vs", s.vs},
          {"tas", s.tas},
          {"airborne", s.airborne != 0},
          {"stopped", s.stopped != 0},
          {"precise", s.precise != 0},
          {"roll", optionalValue(s.roll)},
          {"trueHeading", optionalValue(s.trueHeading)},
          {"tick", s.tick}};
}

std::string jsonLine(const nlohmann::ordered_json& object) {
  return object.dump(-1, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

}  // namespace orv::inspect
