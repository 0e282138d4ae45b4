#include "flight_fixture.h"

#include <fmt/format.h>

#include "engine/engine_step.h"
#include "engine/engine_tables.h"
#include "engine/engine_tick.h"
#include "engine/geodesy.h"
#include "engine/sim_notice_queue.h"
#include "engine/traffic_intake.h"
#include "engine/user_snapshot.h"
#include "liveries/livery_indexes.h"
#include "liveries/match_memory.h"
#include "refdata/code_tables.h"
#include "refdata/model_categories.h"
#include "refdata/valid_codes.h"

namespace orv::test {

void FlightPort::setLights(std::uint32_t objectid, bool nav, bool beacon, bool landing, bool taxi, bool strobes,
                           bool logo, bool cabin) {
  const int i = gf_findLiveAcByObject(objectid);
  const double alt = i < 0 ? 0 : gLiveAc[static_cast<std::size_t>(i)].alt;
  calls.push_back({gv_tick.load(), fmt::format("lights {:d}{:d}{:d}{:d}{:d}{:d}{:d}", nav, beacon, landing, taxi,
                                               strobes, logo, cabin), alt});
}

void FlightPort::setFlaps(AcRecord& ac, std::int32_t index) {
  if (ac.flapsIdx == index) return;
  ac.flapsIdx = index;
  calls.push_back({gv_tick.load(), fmt::format("flaps {}", index), static_cast<LiveAc&>(ac).alt});
}

void FlightPort::setThrottle(AcRecord& ac, std::int32_t index) {
  if (ac.throttleIdx == index) return;
  ac.throttleIdx = index;
  calls.push_back({gv_tick.load(), fmt::format("throttle {}", index), 0});
}

void FlightPort::setSpoilers(AcRecord& ac, bool on) {
  calls.push_back({gv_tick.load(), fmt::format("spoilers {:d}", on), static_cast<LiveAc&>(ac).alt});
}

void FlightPort::setLevers(std::uint32_t objectid, double spoilers, double throttle1, double throttle2) {
  const int i = gf_findLiveAcByObject(objectid);
  const double alt = i < 0 ? 0 : gLiveAc[static_cast<std::size_t>(i)].alt;
  calls.push_back({gv_tick.load(), fmt::format("levers {:g} {:g} {:g}", spoilers, throttle1, throttle2), alt});
}

void FlightPort::queueCreate(const AddRequest& request) {
  creations.push_back(request);
  gSimNotices.post(SimNotice{nextObject_++, request.hexid, kLiveCreated, request.alt, 0});
}

void FlightPort::queueRemove(std::uint32_t objectid) {
  removals.push_back(objectid);
  gSimNotices.post(SimNotice{objectid, 0, kObjectRemoved, 0, 0});
}

// Flat terrain at sea level: the height above ground is the altitude.
void FlightPort::requestAircraftInRange() {
  for (const LiveAc& ac : gLiveAc)
    if (ac.objectid != 0) gSimNotices.post(SimNotice{ac.objectid, ac.alt <= 0, kGroundData, 0, ac.alt});
}

void EngineFlight::SetUp() {
  gf_bindSim(&port);
  for (const char* model : {"A320", "B744", "C172"}) validModels.insert(model);
  largeModels.insert(modelIndex("A320"));
  heavyModels.insert(modelIndex("B744"));
  gUserSnapshot.lat = 50.0;
  gUserSnapshot.lon = 8.0;
  gv_userOnGround = false;
  gv_tick = 0;
}

void EngineFlight::TearDown() {
  gf_bindSim(nullptr);
  lf_clearValidCodes();
  lf_clearModelCategories();
  gf_resetLiveryIndexes();
  lf_clearNoMatch();
  gf_resetCodeTables();
  gUserSnapshot = UserBlock{};
}

void EngineFlight::deliver(std::uint32_t hexid, const std::string& cs, const std::string& type, const Report& r,
                           const std::string& reg) {
  // A title found earlier stands in for the matching, which needs a catalogue.
  if (gf_findLiveAc(hexid) < 0) gLiveryCache.emplace(hexid, "Airbus A320 Test Livery");
  TrafficMsg m;
  m.hexid = hexid;
  m.ident.cs = cs;
  m.ident.reg = reg;
  m.ident.code.acType = modelIndex(type);
  m.timestamp = r.t;
  Sample& s = m.sample;
  s.lat = r.lat, s.lon = r.lon, s.alt = r.alt, s.gs = r.gs, s.tas = r.gs, s.track = r.track, s.vs = r.vs;
  s.airborne = r.alt > 0;
  if (r.roll) s.roll.set(*r.roll);
  s.tick = gv_tick + 3000;
  lf_decodeMsg(std::move(m));
}

void EngineFlight::fly(std::uint32_t hexid, const std::string& cs, const std::string& type,
                       const std::vector<Report>& reports, std::int32_t untilTick, const std::function<void()>& each) {
  std::size_t next = 0;
  while (gv_tick < untilTick) {
    while (next < reports.size() && reports[next].t * 100 <= gv_tick) deliver(hexid, cs, type, reports[next++]);
    lf_handleAddingStack();
    if (each) each();
  }
}

void EngineFlight::steps(int n) {
  for (int i = 0; i < n; ++i) lf_handleAddingStack();
}

const LiveAc* EngineFlight::record(std::uint32_t hexid) const {
  const int i = gf_findLiveAc(hexid);
  return i < 0 ? nullptr : &gLiveAc[static_cast<std::size_t>(i)];
}

std::vector<Report> straightReports(double lat, double lon, double alt, double gs, double trackDeg, double every,
                                    int count, double vs) {
  std::vector<Report> out;
  for (int i = 0; i < count; ++i) {
    const double t = i * every;
    const LatLon p = gf_destination({lat, lon}, trackDeg / 57.29577951308232, gs * t / 3600.0 * 6076.11549);
    out.push_back({t, p.lat, p.lon, alt + vs * t / 60.0, gs, trackDeg, vs, std::nullopt});
  }
  return out;
}

}  // namespace orv::test
