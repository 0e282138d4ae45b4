#include "airportdata/learned_merge.h"

#include <algorithm>

#include "airportdata/stand_reader.h"
#include "foundation/half_hours.h"
#include "foundation/log.h"
#include "refdata/ac_code_text.h"

namespace orv {
namespace {

// The archived file (or an earlier element) already says this: same day, kind, registration
// and code, and at least one half hour in common.
bool isDouble(const StandOpt& a, const StandOpt& b) {
  return a.day == b.day && a.real == b.real && a.reg == b.reg && a.acCode.sameAs(b.acCode) && (a.hours & b.hours) != 0;
}

void logDouble(const Stand& stand, const StandOpt& option, std::string_view callsigns) {
  const std::string code = gf_acCodeText(option.acCode);
  if (const auto hours = gf_bitset2hours(HalfHours(option.hours)))
    gf_log("learned {}: day:{} {} {} cs:{} reg:{} already in airport file", stand.id, option.day, *hours, code,
           callsigns, option.reg);
  else
    gf_log("learned {}: day:{} 'empty hrs' {} cs:{} reg:{} already in airport file", stand.id, option.day, code,
           callsigns, option.reg);
}

}  // namespace

bool mergeLearnedStand(Stand& stand, pugi::xml_node parkpos, std::string_view id, bool clearFlights) {
  if (id != stand.id) return false;
  if (parkpos.attribute("radius_change").as_bool(false)) {
    stand.radius = parkpos.attribute("radius").as_double(0.0) * kNmPerMetre;
    stand.radiusChange = true;
  }
  if (parkpos.attribute("cargo_change").as_bool(false)) {
    stand.cargo = parkpos.attribute("cargo").as_bool(false);
    stand.cargoChange = true;
  }
  if (clearFlights) return true;

  std::uint32_t next = stand.opts.empty() ? 1 : stand.opts.back().number + 1;
  for (pugi::xml_node opt : parkpos.children("opt")) {
    StandOpt option = readOptionAttributes(opt);
    if (option.hours == 0) {
      gf_log("empty bit set");
      continue;
    }
    if (option.day < 1 || option.day > 7) continue;
    if (std::any_of(stand.opts.begin(), stand.opts.end(), [&](const StandOpt& o) { return isDouble(o, option); })) {
      logDouble(stand, option, opt.attribute("cs").as_string());
      continue;
    }
    option.fromArchive = 0;
    option.number = next++;
    stand.opts.push_back(std::move(option));
  }
  return true;
}

}  // namespace orv
