#include "refdata/scenery_lists.h"

namespace orv {

std::vector<std::vector<std::string>> publishers;
std::set<std::string, std::less<>> simAddons20;
std::set<std::string, std::less<>> simAddons24;
std::vector<ThirdParty> thirdParties20;
std::vector<ThirdParty> thirdParties24;

void lf_clearSceneryLists() {
  publishers.clear();
  simAddons20.clear();
  simAddons24.clear();
  thirdParties20.clear();
  thirdParties24.clear();
}

}  // namespace orv
