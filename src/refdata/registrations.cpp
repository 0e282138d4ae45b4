#include "refdata/registrations.h"

#include <algorithm>
#include <utility>

namespace orv {

std::vector<DbaseRecord> dbaseRecords;

void lf_setDbaseRecords(std::vector<DbaseRecord> records) {
  const auto byReg = [](const DbaseRecord& a, const DbaseRecord& b) { return a.reg < b.reg; };
  std::stable_sort(records.begin(), records.end(), byReg);
  const auto sameReg = [](const DbaseRecord& a, const DbaseRecord& b) { return a.reg == b.reg; };
  records.erase(std::unique(records.begin(), records.end(), sameReg), records.end());
  records.shrink_to_fit();
  dbaseRecords = std::move(records);
}

std::vector<std::string> registrationVariants(std::string_view reg) {
  std::vector<std::string> variants;
  if (reg.size() >= 5 && reg.front() != 'N' && reg.find('-') == std::string_view::npos) {
    variants.push_back(std::string(reg.substr(0, 2)) + '-' + std::string(reg.substr(2)));
    variants.push_back(std::string(reg.substr(0, 1)) + '-' + std::string(reg.substr(1)));
  }
  variants.emplace_back(reg);
  return variants;
}

std::optional<AcCode> lookupRegistration(std::string_view reg) {
  if (reg.empty()) return std::nullopt;
  for (const std::string& variant : registrationVariants(reg)) {
    auto it = std::lower_bound(dbaseRecords.begin(), dbaseRecords.end(), variant,
                               [](const DbaseRecord& r, const std::string& key) { return r.reg < key; });
    if (it != dbaseRecords.end() && it->reg == variant) return it->code;
  }
  return std::nullopt;
}

std::string findRegistrationInTitle(std::string_view title) {
  for (const DbaseRecord& record : dbaseRecords)
    if (!record.reg.empty() && record.reg.size() < 6 && title.find(record.reg) != std::string_view::npos)
      return record.reg;
  return {};
}

}  // namespace orv
