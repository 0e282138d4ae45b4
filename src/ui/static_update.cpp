#include "ui/static_update.h"

#include <fmt/format.h>

#include "foundation/message_area.h"
#include "foundation/program_info.h"
#include "parking/parking_run_state.h"
#include "ui/controls.h"

namespace orv {

void lf_announceStaticUpdate(std::int32_t secondsNow) {
  lf_blockParkingControls();
  const std::int32_t s = 15 - secondsNow % 15;
  setMessage(fmt::format("{} will update static parking in {} second{} ...", kProgramName, s, s == 1 ? "" : "s"));
  gv_staticUpdatePending = true;
}

}  // namespace orv
