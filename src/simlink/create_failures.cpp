#include "simlink/create_failures.h"

#include <fmt/format.h>

#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/run_flags.h"
#include "foundation/user_error.h"
#include "refdata/code_tables.h"

namespace orv {

void gf_reportCreateFailed(const AcRecord& ac) {
  if (!gf_stopping()) setMessage(fmt::format("{} '{}' could not be created by your Sim!", ac.cs, ac.title), true);
  gFailedTitles.emplace(ac.title);
  gFailedTitleInfo.insert(fmt::format("{} {}", modelCode(ac.code.acType), airlineCode(ac.code.airline)));
  if (gFailedTitles.size() >= kMaxFailedTitles) {
    gf_log("\n===> Error 81, There are too many liveries that could not be created!\n");
    throw UserErrorException(user_error::kTooManyRefused, fmt::format(fmt::runtime(user_error::kSeeLogText),
                                                                        user_error::kTooManyRefusedText));
  }
}

}  // namespace orv
