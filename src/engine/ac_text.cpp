#include "engine/ac_text.h"

#include <fmt/format.h>

#include "foundation/log.h"

namespace orv {

std::string gf_acText(const AcIdent& ident) {
  std::string route;
  if (ident.from || ident.to)
    route = fmt::format("{:3}->{:3}", ident.from.view(), ident.to.view());
  else
    route.assign(8, ' ');
  return fmt::format("{} {}", fmt::format("{:8} {:12} {}", ident.cs, ident.reg, route), gf_acCodeText(ident.code));
}

std::string gf_acShortText(const AcIdent& ident) {
  return fmt::format("{:8} {} {}", ident.cs, ident.reg, gf_acCodeText(ident.code));
}

void gf_logAcFault(std::string_view label, std::string_view what, const LiveAc& ac) {
  gf_logError("{}: {} {}, sz:{}, fs:{}, st:{}", label, what, gf_acText(ac), ac.stream.size(),
              gf_flightStateName(ac.flightState), gf_simStateName(ac.simState));
}

}  // namespace orv
