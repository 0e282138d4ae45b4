#include "refdata/ac_code_text.h"

#include <fmt/format.h>

#include "refdata/code_tables.h"

namespace orv {

std::string gf_acCodeText(const AcCode& code) {
  const std::string second = code.airline2 ? "," + airlineCode(code.airline2) : std::string();
  return fmt::format("{:3}{:4} {:4}{}{:3}", airlineCode(code.airline), second, modelCode(code.acType),
                     code.fromRegTable ? "." : " ", code.cargo ? "(C)" : "");
}

}  // namespace orv
