#include "liveries/livery_record.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

#include "refdata/code_tables.h"

namespace orv {

namespace {
// The rank of every index of a code table in the order of its texts, so that a comparison of
// codes is a comparison of two numbers and not of two texts taken from the table.
std::vector<std::uint32_t> textRanks(std::size_t count, std::string (*text)(std::uint16_t)) {
  std::vector<std::string> texts(count);
  for (std::size_t i = 0; i < count; ++i) texts[i] = text(static_cast<std::uint16_t>(i));
  std::vector<std::uint32_t> order(count);
  std::iota(order.begin(), order.end(), 0u);
  std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) { return texts[a] < texts[b]; });
  std::vector<std::uint32_t> rank(count);
  for (std::size_t i = 0; i < count; ++i) rank[order[i]] = static_cast<std::uint32_t>(i);
  return rank;
}
}  // namespace

void gf_sortLiveries(std::list<LiveryRecord>& list) {
  const std::vector<std::uint32_t> airline = textRanks(airlineCount(), airlineCode);
  const std::vector<std::uint32_t> model = textRanks(modelCount(), modelCode);
  const auto before = [&](const LiveryRecord& a, const LiveryRecord& b) {
    if (a.code.airline != b.code.airline) return airline[a.code.airline] < airline[b.code.airline];
    if (a.code.airline2 != b.code.airline2) return airline[a.code.airline2] < airline[b.code.airline2];
    if (a.code.acType != b.code.acType) return model[a.code.acType] < model[b.code.acType];
    return a.title < b.title;
  };
  // A catalogue is written in this order, so reading it back usually finds nothing to do.
  if (!std::is_sorted(list.begin(), list.end(), before)) list.sort(before);
}

}  // namespace orv
