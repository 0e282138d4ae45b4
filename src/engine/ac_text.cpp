#include "engine/ac_text.h"

#include <fmt/format.h>

#include "refdata/code_tables.h"

namespace orv {

std::string gf_acCodeText(const AcCode& code) {
  const std::string second = code.airline2 ? "," + airlineCode(code.airline2) : std::string();
  return fmt::format("{:3}{:4} {:4}{}{:3}", airlineCode(code.airline), second, modelCode(code.acType),
                     code.fromRegTable ? "." : " ", code.cargo ? "(C)" : "");
}

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

}  // namespace orv
