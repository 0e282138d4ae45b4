#pragma once
// The stand table of the park airport: every stand of its airport file, with the options that
// say who parks there on which weekday in which half hours. At run time a stand is named by
// its number, its 1-based place in the table; in files by its id.
#include <cstdint>
#include <string>
#include <vector>

#include "refdata/ac_code.h"

namespace orv {

// Radius is held in nautical miles and written in metres.
inline constexpr double kNmPerMetre = 0.0005399568034557236;
// A fuel stand and a helipad count for nothing in the quality factors.
inline constexpr std::uint16_t kStandTypeFuel = 12;

// One way in which an aircraft uses a stand.
struct StandOpt {
  AcCode acCode;
  std::string reg;                // may be empty
  std::string cs;                 // first callsign, may be empty
  std::string cs2;                // second callsign, may be empty
  std::uint64_t hours = 0;        // bit n: the half hour from n x 30 minutes after 00:00 UTC
  std::uint32_t number = 0;       // 1-based within the stand in order of arrival; 0: withdrawn
  std::uint32_t day = 0;          // 1 Monday to 7 Sunday, UTC
  std::uint32_t fromArchive = 0;  // 1 from an archived or handmade file, 0 learned
  std::uint32_t real = 1;         // 1 real, 0 soft
  bool cpl = false;               // the aircraft was seen leaving: the stay is complete
};

struct Stand {
  std::vector<StandOpt> opts;
  std::string id;
  std::vector<std::uint32_t> adjacent;  // numbers of the stands that collide with this one
  double latitude = 0;                  // degrees
  double longitude = 0;
  double heading = 0;  // radians, true
  double radius = 0;   // nautical miles
  std::uint32_t number = 0;
  std::uint16_t type = 0;
  bool manual = false;
  bool radiusChange = false;
  bool cargoChange = false;
  // Run-time flags of the engine and of parking; never written.
  bool occupied = false;
  bool liveAtStand = false;
  bool reserved = false;
  bool nearOccupied = false;
  bool cargo = false;
  bool ramp = false;
  bool heli = false;
};

// The one table of the program. A stand keeps its place from a load to the next clear.
extern std::vector<Stand> gStands;

// The stand of that number, found by binary search (numbers rise with the place); nullptr
// when the table has none.
Stand* findStand(std::vector<Stand>& stands, std::uint32_t number);

// The name of stand sid as log lines show it: its id, or the number while no such stand is known.
std::string lf_standName(std::int32_t sid);

}  // namespace orv
