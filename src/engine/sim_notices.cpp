#include "engine/sim_notices.h"

#include <fmt/format.h>

#include "airportdata/stands.h"
#include "engine/aircraft_removal.h"
#include "engine/arrival.h"
#include "engine/engine_tables.h"
#include "engine/landing.h"
#include "engine/sim_port.h"
#include "engine/stand_contention.h"
#include "foundation/day_and_slot.h"
#include "foundation/log.h"
#include "foundation/parameters.h"

namespace orv {
namespace {

constexpr double kRadPerDeg = 1.0 / kDegreesPerRadian;

int lf_findParked(std::uint32_t hexid) {
  for (std::size_t i = 0; i < gParkedAc.size(); ++i)
    if (gParkedAc[i].hexid == hexid) return static_cast<int>(i);
  return -1;
}

int lf_findParkedByObject(std::uint32_t objectid) {
  for (std::size_t i = 0; i < gParkedAc.size(); ++i)
    if (gParkedAc[i].objectid == objectid) return static_cast<int>(i);
  return -1;
}

void lf_eraseParkedAt(std::size_t i) {
  if (i != gParkedAc.size() - 1) gParkedAc[i] = std::move(gParkedAc.back());
  gParkedAc.pop_back();
}

// The lights, engines and levers that an aircraft shows from its first moment on.
void lf_activateLive(LiveAc& ac) {
  const std::uint32_t id = ac.objectid;
  const bool parked = ac.flightState == kParked;
  const bool air = !parked && !ac.onGround;
  if (parked)
    gf_sim().stopEngines(id);
  else
    gf_sim().startEngines(id);
  gf_sim().setSpoilers(ac, false);
  if (air) {
    const bool low = ac.alt <= 10000;
    gf_sim().setLights(id, true, true, low, false, true, low, ac.agl >= 2000);
  } else if (!parked) {
    gf_sim().setLights(id, true, true, false, ac.flightState == kTaxi, false, true, true);
  } else {
    gf_sim().setLights(id, NAV_LIGHTS_WHILE_PARKED.value, false, false, false, false, true, true);
  }
  if (!air) {
    gf_sim().setThrottle(ac, ac.acClass == kRotorcraft ? 4 : 0);
    gf_sim().setFlaps(ac, !parked && ac.flightState == kTaxi ? 1 : 0);
  }
  ac.simState = kActive;
}

// Counts one tick of a settling object; true when it is finished and leaves the list.
bool lf_stepNewObject(SimNotice& entry) {
  entry.b += 1.0;  // a settling entry counts its ticks in `b`
  const int count = static_cast<int>(entry.b);
  if (entry.kind == kLiveCreated) {
    const int i = gf_findLiveAc(entry.id);
    if (i < 0 || gLiveAc[static_cast<std::size_t>(i)].objectid != entry.objectid) return true;
    LiveAc& ac = gLiveAc[static_cast<std::size_t>(i)];
    if (count == 50 || count == 100) gf_sim().toggleAllLights(ac.objectid);
    if (count < kSettleTicks) return false;
    lf_activateLive(ac);
    if (ac.removeWhenCreated) {
      ac.removeWhenCreated = 0;
      removeAircraftFromSim(ac);
    }
    return true;
  }
  if (count < kSettleTicks) return false;
  const int i = lf_findParked(entry.id);
  if (i < 0) return true;
  AcRecord& ac = gParkedAc[static_cast<std::size_t>(i)];
  ac.objectid = entry.objectid;
  ac.simState = kActive;
  lf_parkedConfig(ac);
  gf_log("{:8}: {:8} parked", lf_standName(ac.sid), ac.cs);
  if (ac.removeWhenCreated) {
    ac.removeWhenCreated = 0;
    removeAircraftFromSim(ac);
  }
  return true;
}

void lf_onLiveNotice(const SimNotice& notice) {
  if (notice.objectid < 3) return;  // the user's and the simulator's own objects
  const int i = gf_findLiveAc(notice.id);
  if (i < 0) {
    // Its record is gone meanwhile: the object must not stay behind in the simulator.
    gRemoveQueue.push_back(notice.objectid);
    return;
  }
  lf_onLiveCreated(gLiveAc[static_cast<std::size_t>(i)], notice);
  SimNotice entry = notice;
  entry.b = 0;
  gNewObjects.push_back(entry);
}

}  // namespace

void lf_onLiveCreated(LiveAc& ac, const SimNotice& notice) {
  ac.objectid = notice.objectid;
  ac.agl = notice.a;
  if (!ac.stream.empty() && ac.stream.front().airborne == 0) lf_onGroundAtCreation(ac);
  gf_sim().setFlightPlan(ac);
  gf_sim().requestStaticData(ac.objectid);
}

void lf_onGroundAtCreation(LiveAc& ac) {
  ac.onGround = 1;
  gf_sim().setGear(ac, true);
  ac.stepAlt = 0;
  if (ac.flightState == kParked) {
    ac.parkedSlot = gv_dayAndSlot.load();
    gf_log("{:8}: {:8} parks", lf_standName(ac.sid), ac.cs);
    lf_onLiveParksAtStand(ac);
  }
  ac.stageCount = 1;
}

void lf_onObjectRemoved(std::uint32_t objectid) {
  if (const int i = gf_findLiveAcByObject(objectid); i >= 0) {
    LiveAc& ac = gLiveAc[static_cast<std::size_t>(i)];
    if (ac.simState == kLiveryRespawn) {
      // Back to the buffer, to be spawned anew with its new livery.
      ac.simState = kBuffer;
      ac.throttleIdx = 5;
      ac.flapsIdx = 4;
      ac.objectid = 0;
      return;
    }
    if (ac.flightPlanSet) gf_sim().removeFlightPlan(ac);
    gf_eraseLiveAcAt(static_cast<std::size_t>(i));
    return;
  }
  if (const int i = lf_findParkedByObject(objectid); i >= 0) lf_eraseParkedAt(static_cast<std::size_t>(i));
}

void lf_onStaticData(AcRecord& ac, double cg, double pitch) {
  if (cg >= 1.0 && cg <= 35.0) ac.cgHeight = cg;
  ac.staticPitch = pitch <= -1.0 * kRadPerDeg || pitch > 2.5 * kRadPerDeg ? 0.7 * kRadPerDeg : pitch;
}

void lf_onCreateFailed(std::uint32_t hexid) {
  if (hexid > 10000) {
    const int i = gf_findLiveAc(hexid);
    if (i < 0) return;
    gf_sim().reportCreateFailed(gLiveAc[static_cast<std::size_t>(i)]);
    gf_eraseLiveAcAt(static_cast<std::size_t>(i));
    return;
  }
  const int i = lf_findParked(hexid);
  if (i < 0) return;
  gf_sim().reportCreateFailed(gParkedAc[static_cast<std::size_t>(i)]);
  lf_eraseParkedAt(static_cast<std::size_t>(i));
}

void lf_handleNotices(const std::vector<SimNotice>& notices) {
  for (const SimNotice& n : notices) {
    switch (n.kind) {
      case kLiveCreated:
        lf_onLiveNotice(n);
        break;
      case kParkedCreated:
        if (n.objectid >= 3) {
          SimNotice entry = n;
          entry.b = 0;
          gNewObjects.push_back(entry);
        }
        break;
      case kObjectRemoved:
        lf_onObjectRemoved(n.objectid);
        break;
      case kGroundData:
        if (const int i = gf_findLiveAcByObject(n.objectid); i >= 0)
          lf_onGroundData(gLiveAc[static_cast<std::size_t>(i)], n.id != 0, n.a, n.b);
        break;
      case kStaticData:
        if (const int i = gf_findLiveAcByObject(n.objectid); i >= 0)
          lf_onStaticData(gLiveAc[static_cast<std::size_t>(i)], n.a, n.b);
        else if (const int p = lf_findParkedByObject(n.objectid); p >= 0)
          lf_onStaticData(gParkedAc[static_cast<std::size_t>(p)], n.a, n.b);
        break;
      case kCreateFailed:
        lf_onCreateFailed(n.id);
        break;
      default:
        break;
    }
  }
  std::erase_if(gNewObjects, lf_stepNewObject);
}

}  // namespace orv
