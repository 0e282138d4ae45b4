#include "airportdata/quality_factors.h"

#include <fmt/format.h>

#include <algorithm>
#include <bitset>
#include <cmath>

namespace orv {
namespace {

// Small stands say less about an airport than large ones.
double weightOf(const Stand& stand) {
  if (stand.radius <= 7.0) return 0.3;
  if (stand.radius <= 10.0) return 1.5;
  return 1.0;
}

struct KindSums {
  std::uint32_t options = 0;
  std::bitset<8> days;
  std::uint32_t halfHours = 0;

  double value() const {
    return 10000.0 + std::min(20.0 * options, 4000.0) + 100.0 * static_cast<double>(days.count()) +
           2.0 * std::min<double>(halfHours, 600.0);
  }
};

std::int32_t factorOf(double sum, double weights) {
  return std::clamp(static_cast<std::int32_t>(std::lround(sum / weights * 0.00625)), 0, 100);
}

}  // namespace

QualityFactors computeQualityFactors(const std::vector<Stand>& stands) {
  const bool anyOption = std::any_of(stands.begin(), stands.end(), [](const Stand& s) { return !s.opts.empty(); });
  if (!anyOption) return {};
  double weights = 0.0, realSum = 0.0, softSum = 0.0;
  for (const Stand& stand : stands) {
    if (stand.heli || stand.type == kStandTypeFuel) continue;
    const double weight = weightOf(stand);
    weights += weight;
    KindSums real, soft;
    for (const StandOpt& option : stand.opts) {
      if (option.number == 0) continue;
      KindSums& kind = option.real ? real : soft;
      ++kind.options;
      if (option.day >= 1 && option.day <= 7) kind.days.set(option.day);
      kind.halfHours += static_cast<std::uint32_t>(std::bitset<64>(option.hours).count());
    }
    if (real.options > 0) realSum += real.value() * weight;
    if (soft.options > 0) softSum += soft.value() * weight;
  }
  if (weights <= 0.0) return {0, 0};
  return {factorOf(realSum, weights), factorOf(softSum, weights)};
}

std::string qualityFactorText(QualityFactors factors) {
  if (factors.real == -1 && factors.soft == -1) return "  ";
  if (factors.real < 45) return fmt::format("{:2}/{:2}", factors.real, factors.soft);
  return fmt::format("{:2}", factors.real);
}

}  // namespace orv
