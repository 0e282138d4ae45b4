#include "feed/qnh_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "feed/rt_link.h"
#include "feed/traffic_decoder.h"
#include "foundation/log.h"
#include "foundation/status_values.h"

namespace orv {
namespace {

constexpr double kHpaPerHundredthInch = 0.33865307;

std::int64_t lf_roundToInteger(double value) {
  // Beyond this no weather value is meant; the rounding itself would be undefined.
  if (!(std::fabs(value) < 1e15)) throw std::runtime_error(fmt::format("QNH {} out of range", value));
  return std::llround(value);
}

// The QNH of the line as an integer, by the JSON type of its member; false (with the log
// line) when the line has none that can be read.
bool lf_readQnh(const nlohmann::json& j, std::string_view line, std::int64_t& v) {
  const auto it = j.find("QNH");
  if (it == j.end() || !(it->is_number() || it->is_string())) {
    gf_log("no QNH {}", line);
    return false;
  }
  if (it->is_number_unsigned()) {
    v = static_cast<std::int64_t>(std::min<std::uint64_t>(it->get<std::uint64_t>(), std::numeric_limits<std::int64_t>::max()));
  } else if (it->is_number_integer()) {
    v = it->get<std::int64_t>();
  } else if (it->is_number_float()) {
    const double d = it->get<double>();
    if (!(std::fabs(d) <= std::numeric_limits<float>::max())) throw std::runtime_error(fmt::format("QNH {} out of range", d));
    v = lf_roundToInteger(static_cast<double>(static_cast<float>(d)));
  } else {
    const std::string& text = it->get_ref<const std::string&>();
    // Leading digits only: from_chars alone would also take a minus sign.
    const bool digitFirst = !text.empty() && text.front() >= '0' && text.front() <= '9';
    const auto r = std::from_chars(text.data(), text.data() + text.size(), v);
    if (!digitFirst || r.ec != std::errc()) {
      gf_logError("QNH string parse error: {} in {}", text, line);
      return false;
    }
  }
  return true;
}

void lf_showWeatherStatus(int status) { gFeedStatus.weather.show(status); }

}  // namespace

void QnhReader::processDatagram() {
  try {
    const nlohmann::json j = nlohmann::json::parse(line);
    if (!j.is_object()) throw std::runtime_error("not a JSON object");
    std::int64_t v = 0;
    if (!lf_readQnh(j, line, v)) return;
    // Hundredths of an inch of mercury: 2992 is 1013 hectopascal.
    if (v > 1100) v = lf_roundToInteger(static_cast<double>(v) * kHpaPerHundredthInch);
    const auto qnh = static_cast<std::int32_t>(std::clamp<std::int64_t>(v, 900, 1100));
    if (qnh == lastQnh.load() && qnh != kStandardQnh) return;
    lastQnh = qnh;
    gTrafficDecoder.qnh = qnh;
    gv_qnh = qnh;
    gFeedStatus.qnh.show(qnh);
    if (gFeedStatus.weather.load() == kFeedQuiet) gFeedStatus.weather.show(kFeedFlowing);
  } catch (const std::exception& e) {
    gf_log("Exception {}, in {}", e.what(), line);
  }
}

void QnhReader::stopped() { gf_log("QNH Reader has stopped"); }

void gf_startQnhReader(std::uint16_t port) {
  gf_runReader(gQnhReader, "QNH Reader", port, gv_rtOnThisPc, lf_showWeatherStatus);
}

}  // namespace orv
