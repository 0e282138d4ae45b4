#include "engine/object_id_list.h"

#include <fmt/format.h>

#include "engine/engine_tables.h"
#include "foundation/atomic_file.h"
#include "foundation/log.h"
#include "foundation/sim_choice.h"
#include "refdata/code_tables.h"

namespace orv {

void gf_writeObjectIdList() {
  std::string text;
  for (const LiveAc& ac : gLiveAc) {
    if (ac.simState != kActive) continue;
    // MSFS 2024 shows object ids in hexadecimal in its tools, 2020 in decimal.
    const std::string id = gv_isMsfs2020 ? fmt::format("{}", ac.objectid) : fmt::format("{:x}", ac.objectid);
    fmt::format_to(std::back_inserter(text), "{};{};{};{};{};{};{}\n", id, ac.cs, ac.reg, airlineCode(ac.code.airline),
                   modelCode(ac.code.acType), ac.onGround ? "GND" : "AIR", ac.flightState == kParked ? "PARKED" : "");
  }
  if (!gf_writeFileAtomically(kObjectIdListPath, [&](std::ostream& out) { out << text; }))
    gf_logError("Failed to write {}", kObjectIdListPath.string());
}

}  // namespace orv
