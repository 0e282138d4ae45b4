#pragma once
// What the dbase knows about scenery: the spellings of the publishers, the airports that
// come with each simulator, and the airports of third-party publishers.
#include <set>
#include <string>
#include <vector>

namespace orv {

// One entry per publisher: its spellings, sorted by the text they were listed in.
extern std::vector<std::vector<std::string>> publishers;
// ICAO codes of the airports shipped as add-ons of Microsoft Flight Simulator 2020 and 2024.
extern std::set<std::string, std::less<>> simAddons20;
extern std::set<std::string, std::less<>> simAddons24;

struct ThirdParty {
  std::string publisher;
  std::vector<std::string> airports;
};
extern std::vector<ThirdParty> thirdParties20;
extern std::vector<ThirdParty> thirdParties24;

void lf_clearSceneryLists();

}  // namespace orv
