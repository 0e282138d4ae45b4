// The weather datagram of the QNH Reader: the whole input is one datagram.
#include <cstdint>
#include <vector>

#include "feed/qnh_reader.h"
#include "feed/traffic_decoder.h"
#include "fuzz_support.h"

using namespace orv;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  // Exactly the datagram's bytes, so that a read behind its end is seen.
  const std::vector<char> datagram(data, data + size);
  gQnhReader.lastQnh = kStandardQnh;
  gv_qnh = kStandardQnh;
  gTrafficDecoder.qnh = kStandardQnh;
  gQnhReader.line = std::string_view(datagram.data(), datagram.size());
  gQnhReader.processDatagram();
  gQnhReader.line = {};
  const std::int32_t qnh = gv_qnh.load();
  fuzz::check(qnh >= 900 && qnh <= 1100, "the QNH stays within 900 to 1100 hPa");
  fuzz::check(gTrafficDecoder.qnh.load() == qnh, "the decoding gets the same QNH");
  return 0;
}
