#include "simlink/sim_queues.h"

#include <mutex>
#include <string>

#include "engine/engine_tables.h"
#include "engine/engine_requests.h"
#include "foundation/log.h"
#include "foundation/message_area.h"
#include "foundation/run_state.h"
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

void lf_clearAll() {
  gPositionOut.client.clear();
  gEventOut.clear();
  gCreateOut.clear();
  gRemoveOut.clear();
}

}  // namespace

void gf_reserveSimQueues() {
  std::lock_guard lock(gSimMutex);
  gCreateOut.reserve(256);
  gRemoveOut.reserve(256);
  gEventOut.reserve(256);
}

void gf_clearSimQueues() {
  std::lock_guard lock(gSimMutex);
  gCreateOut.clear();
  gRemoveOut.clear();
}

void lf_sendToSim() {
  std::unique_lock lock(gSimMutex, std::try_to_lock);
  if (!lock.owns_lock()) return;
  if (gv_simRequestFailed.load()) {
    lf_clearAll();
    return;
  }
  // Objects at or below the user's id are never touched, whatever the engine asked.
  for (const PositionOut& p : gPositionOut.client)
    if (gf_isAiObject(p.objectid)) lf_writePosition(p);
  gPositionOut.client.clear();
  for (const EventOut& e : gEventOut)
    if (gf_isAiObject(e.objectid)) lf_transmitEvent(e);
  gEventOut.clear();
  // A failed create or remove ends all requests; what is left in the queue is dropped.
  for (const AddRequest& r : gCreateOut)
    if (!gv_simRequestFailed.load()) lf_createObject(r);
  gCreateOut.clear();
  for (std::uint32_t objectid : gRemoveOut)
    if (!gv_simRequestFailed.load()) lf_removeObject(objectid);
  gRemoveOut.clear();
}

void lf_discardPendingPositions() {
  std::lock_guard lock(gSimMutex);
  gPositionOut.engine.clear();
  gPositionOut.client.clear();
}

void simQueueCreate(const AddRequest& request) {
  std::lock_guard lock(gSimMutex);
  gCreateOut.push_back(request);
}

void simQueueRemove(std::uint32_t objectid) {
  std::lock_guard lock(gSimMutex);
  gRemoveOut.push_back(objectid);
}

}  // namespace orv
