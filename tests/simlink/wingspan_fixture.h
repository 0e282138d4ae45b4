#pragma once
// The dbase's wing spans for the models that a test flies. A file of its own, since the header
// of the span table and that of the stand table both define kNmPerMetre.
#include <string>
#include <utility>
#include <vector>

namespace orv::test {

// (model code, full span in metres); the models must be valid codes already.
void fillTestWingspans(const std::vector<std::pair<std::string, double>>& spans);
void clearTestWingspans();

}  // namespace orv::test
