// RealTraffic's reply to the version request, as the link receives it.
#include <cstdint>
#include <string>
#include <vector>

#include "feed/rt_version.h"
#include "foundation/message_area.h"
#include "foundation/status_values.h"
#include "foundation/time_text.h"
#include "fuzz_support.h"

using namespace orv;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::vector<char> reply(data, data + size);
  gv_rtProf = false;
  gFeedStatus.rtEdition.show("");
  lf_processRTVersion(std::string_view(reply.data(), reply.size()));
  const std::string edition = gFeedStatus.rtEdition.load();
  fuzz::check(edition.empty() || edition.starts_with(gv_rtProf ? "RT prof edition: " : "RT stnd edition: "),
              "the edition text names the edition that the flag holds");
  gf_resetMessageArea();
  return 0;
}
