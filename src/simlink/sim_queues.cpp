#include "simlink/sim_queues.h"

#include <mutex>
#include <string>
#include <vector>

#include "engine/position_exchange.h"
#include "foundation/log.h"
#include "foundation/message_area.h"
#include "simlink/sim_run_state.h"
#include "foundation/time_text.h"
#include "platform/simconnect/simconnect.h"
#include "simlink/sim_ids.h"
#include "simlink/sim_session.h"

namespace orv {
namespace {

// gSimMutex is held by the caller in all of these.

void lf_writePosition(const PositionOut& p) {
  double block[8] = {p.lat, p.lon, p.pitch, p.bank, p.heading, p.alt, p.vs, p.tas};
  SimConnect_SetDataOnSimObject(gv_simHandle, kDefPosition, p.objectid, SIMCONNECT_DATA_SET_FLAG_DEFAULT, 0,
                                sizeof block, block);
}

void lf_releaseControl(std::uint32_t objectid) {
  SimConnect_AIReleaseControl(gv_simHandle, objectid, kReqRelease);
}

// A flaps event hands the aircraft back to the simulator's AI, so it is released before and after.
void lf_transmitEvent(const EventOut& e) {
  const bool flaps = e.eventId == kEvFlaps;
  if (flaps) lf_releaseControl(e.objectid);
  const HRESULT hr = SimConnect_TransmitClientEvent(gv_simHandle, e.objectid, e.eventId, e.value, kGroupAiEvents,
                                                    SIMCONNECT_EVENT_FLAG_DEFAULT);
  if (FAILED(hr)) {
    setMessage(fmt::format("SimConnect TransmitClientEvent: {} fails", e.eventId), true);
    return;
  }
  if (flaps) lf_releaseControl(e.objectid);
}

void lf_createObject(const AddRequest& r) {
  SIMCONNECT_DATA_INITPOSITION position{r.lat, r.lon, r.alt, r.pitch, r.bank, r.heading, r.onGround, r.airspeed};
  const std::string title(r.title);
  if (FAILED(SimConnect_AICreateNonATCAircraft(gv_simHandle, title.c_str(), r.callsign.c_str(), position, kReqCreate))) {
    gf_logError("! Simcon call to create ac in sim failed, hexid:{}, liv: '{}', callsign: {})", r.hexid, title,
                r.callsign);
    lf_simRequestError();
    return;
  }
  DWORD sendId = 0;
  if (FAILED(SimConnect_GetLastSentPacketID(gv_simHandle, &sendId))) {
    gf_logError("GetLastSentPacketID");
    sendId = 0;
  }
  gPendingCreates.push_back(PendingCreate{sendId, r.hexid, r.callsign});
}

void lf_removeObject(std::uint32_t objectid) {
  if (!gf_isAiObject(objectid)) {
    gf_logError("SimConnect call to remove ac with objectid {:x}", objectid);
    return;
  }
  if (FAILED(SimConnect_AIRemoveObject(gv_simHandle, objectid, kReqRemove))) {
    gf_logError("{} !SimConnect call to remove AI ac from sim failed, id {:x}?", gf_timeOfDay(), objectid);
    lf_simRequestError();
  }
}

// The SimClient thread's own copies of the queues, swapped in at each frame.
struct FrameWork {
  std::vector<PositionOut> positions;
  std::vector<EventOut> events;
  std::vector<AddRequest> creates;
  std::vector<std::uint32_t> removes;
};
FrameWork gFrame;

void lf_takeFrameWork() {
  gPositionOut.take(gFrame.positions);
  gEventOut.takeAll(gFrame.events);
  gCreateOut.takeAll(gFrame.creates);
  gRemoveOut.takeAll(gFrame.removes);
}

}  // namespace

void gf_reserveSimQueues() {
  gCreateOut.reserve(256);
  gRemoveOut.reserve(256);
  gEventOut.reserve(256);
}

void gf_clearSimQueues() {
  gEventOut.clear();
  gCreateOut.clear();
  gRemoveOut.clear();
}

void lf_sendToSim() {
  std::unique_lock lock(gSimMutex, std::try_to_lock);
  if (!lock.owns_lock()) return;
  lf_takeFrameWork();
  if (gv_simRequestFailed.load()) return;
  // Objects at or below the user's id are never touched, whatever the engine asked.
  for (const PositionOut& p : gFrame.positions)
    if (gf_isAiObject(p.objectid)) lf_writePosition(p);
  for (const EventOut& e : gFrame.events)
    if (gf_isAiObject(e.objectid)) lf_transmitEvent(e);
  // A failed create or remove ends all requests; what is left in the queue is dropped.
  for (const AddRequest& r : gFrame.creates)
    if (!gv_simRequestFailed.load()) lf_createObject(r);
  for (std::uint32_t objectid : gFrame.removes)
    if (!gv_simRequestFailed.load()) lf_removeObject(objectid);
}

void lf_discardPendingPositions() { gPositionOut.clear(); }

void simQueueCreate(const AddRequest& request) { gCreateOut.post(request); }

void simQueueRemove(std::uint32_t objectid) { gRemoveOut.post(objectid); }

}  // namespace orv
