#include "wingspan_fixture.h"

#include "refdata/wingspans.h"

namespace orv::test {

void fillTestWingspans(const std::vector<std::pair<std::string, double>>& spans) { lf_fillWingspans(spans); }

void clearTestWingspans() { lf_clearWingspans(); }

}  // namespace orv::test
