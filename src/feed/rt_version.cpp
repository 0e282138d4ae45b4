#include "feed/rt_version.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>
#include <string>

#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/status_values.h"
#include "foundation/time_text.h"

namespace orv {

void lf_processRTVersion(std::string_view reply) {
  if (reply.empty()) {
    gv_rtProf = false;
    setError("No RealTraffic version received?");
    return;
  }
  nlohmann::json j;
  try {
    j = nlohmann::json::parse(reply);
  } catch (const std::exception& e) {
    gv_rtProf = false;
    gFeedStatus.rtEdition.show("");
    gf_log("{}: JSON parse failed: {}", "lf_processRTVersion", e.what());
    return;
  }
  if (!j.is_object()) {
    gv_rtProf = false;
    gFeedStatus.rtEdition.show("");
    return;
  }
  // A missing or non-integer level is the standard edition.
  const auto level = j.find("level");
  const bool prof = level != j.end() && level->is_number_integer() && level->get<std::int64_t>() == 2;
  std::string version;
  if (const auto v = j.find("version"); v != j.end()) version = v->is_string() ? v->get<std::string>() : v->dump();
  gv_rtProf = prof;
  gFeedStatus.rtEdition.show(fmt::format("RT {} edition: {}", prof ? "prof" : "stnd", version));
}

}  // namespace orv
