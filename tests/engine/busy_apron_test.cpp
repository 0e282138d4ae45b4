// A busy stock airport: more aircraft end their taxi at the stands of their size than there are
// free ones. Whatever the order, no two end on one stand, none stands inside another's span, and
// the ones left over are dealt with as the stand rules say.
#include <gtest/gtest.h>

#include <filesystem>

#include "airportdata/stand_reader.h"
#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/park_airport_site.h"
#include "ground_fixture.h"

namespace orv::test {
namespace {

class BusyApron : public GroundFlight {
 protected:
  void SetUp() override {
    GroundFlight::SetUp();
    const auto file =
        std::filesystem::path(__FILE__).parent_path().parent_path() / "data" / "airports" / "stock_small.xml";
    gStands = gf_standsFromText(readFile(file));
    gParkAirportSite.chosen = true;
    gParkAirportSite.lat = 52.3086;
    gParkAirportSite.lon = 4.7639;
  }
  std::int32_t sidOf(const std::string& id) {
    for (const Stand& s : gStands)
      if (s.id == id) return static_cast<std::int32_t>(s.number);
    ADD_FAILURE() << id;
    return 0;
  }
  // Removed: on its way out of the simulator, or already gone from the table.
  static bool gone(std::uint32_t hexid) {
    const int i = gf_findLiveAc(hexid);
    return i < 0 || gLiveAc[static_cast<std::size_t>(i)].simState == kRemovingFromSim;
  }
  LatLon near(const std::string& id, double north, double east) {
    const Stand& s = *findStand(gStands, static_cast<std::uint32_t>(sidOf(id)));
    const LatLon n = gf_destination({s.latitude, s.longitude}, 0, north / 0.3048);
    return gf_destination(n, kPi / 2, east / 0.3048);
  }
  // A class 2 aircraft that taxis from 80 m south of `to` and stops there, 20 s after `delay`.
  std::uint32_t arrival(LatLon to, std::int32_t delay) {
    const LatLon from = gf_destination(to, kPi, 80 / 0.3048);
    const std::uint32_t hexid = groundAircraft(kLarge, from, 0);
    LiveAc& ac = live(hexid);
    ac.stream.front().tick = gv_tick + delay;
    Sample end = groundSample(to, 0, gv_tick + delay + 2000);
    end.stopped = 1;
    ac.stream.push_back(end);
    return hexid;
  }
};

TEST_F(BusyApron, MoreArrivalsThanFreeStandsOfTheirSize) {
  ASSERT_EQ(gStands.size(), 5u);
  const std::uint32_t standing = parkedAircraft(kLarge, sidOf("D2"));
  std::vector<std::uint32_t> arrivals = {
      arrival(near("D2", 4, 2), 0),     // takes D2 from the one standing there
      arrival(near("D4", -3, 1), 300),  // D4 touches D2
      arrival(near("D4", 5, -2), 600),  // a second to D4
      arrival(near("R02", 6, 0), 900),  // the heavy stand takes a class 2 as well
      arrival(near("G7", 3, 0), 1200),  // a light aircraft's stand: too small, yet within 20 m
  };
  const std::uint32_t nowhere = arrival(near("R02", 300, 0), 0);  // no stand near
  steps(9000);

  std::vector<const LiveAc*> parked;
  for (const LiveAc& ac : gLiveAc) {
    if (ac.simState == kRemovingFromSim) continue;
    if (ac.flightState == kParked) parked.push_back(&ac);
  }
  ASSERT_GE(parked.size(), 2u) << log.text();
  for (std::size_t i = 0; i < parked.size(); ++i) {
    for (std::size_t j = i + 1; j < parked.size(); ++j) {
      EXPECT_NE(parked[i]->sid, parked[j]->sid) << parked[i]->cs << " and " << parked[j]->cs << "\n" << log.text();
      const double d = gf_distance({parked[i]->lat, parked[i]->lon}, {parked[j]->lat, parked[j]->lon});
      EXPECT_GT(d, (parked[i]->hwsp + parked[j]->hwsp) * 1.1) << parked[i]->cs << " inside " << parked[j]->cs;
    }
  }
  int standsNow = 0;
  for (const std::uint32_t hexid : arrivals) {
    // Every arrival found a stand: it stands there, or it lost the stand and was removed.
    if (gone(hexid)) continue;
    EXPECT_EQ(live(hexid).flightState, kParked) << live(hexid).cs << "\n" << log.text();
    ++standsNow;
  }
  EXPECT_GE(standsNow, 2);
  EXPECT_LT(standsNow, 5) << "D4 and D2 touch, and D4 was wanted twice";
  EXPECT_TRUE(gone(standing)) << "an arriving aircraft wins against one that stands";
  EXPECT_EQ(live(nowhere).flightState, kTaxi) << "no stand: it stays taxiing";
  EXPECT_NE(live(nowhere).simState, kRemovingFromSim);
  EXPECT_EQ(live(nowhere).sid, 0);
  const Stand& g7 = *findStand(gStands, static_cast<std::uint32_t>(sidOf("G7")));
  EXPECT_TRUE(g7.radiusChange) << "the stand is larger than its file says";
}

}  // namespace
}  // namespace orv::test
