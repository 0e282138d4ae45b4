#pragma once
// The open SimConnect session and what the SimClient thread keeps about it: the handle, the
// user aircraft's object id, the objects that have just appeared and the creations the
// simulator has not confirmed yet; and the two ways the session talks to the rest of the
// program: notices to the engine and the end of all requests after a failure.
#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

#include "engine/live_aircraft.h"
#include "platform/simconnect/simconnect.h"

namespace orv {

// gSimMutex: every SimConnect call, and the handle. The hand-overs' mutexes (traffic, notices,
// positions, the client's queues) are leaves and the log's is innermost of all, so only those
// are ever locked inside it, and no order between two of the program's locks arises.
inline std::mutex gSimMutex;

// The open session, empty when there is none. Written by the SimClient thread under
// gSimMutex; other threads use it only under gSimMutex.
inline HANDLE gv_simHandle = nullptr;
// A session is open: requests of other threads have somewhere to go.
bool gf_simSessionOpen();

// The user aircraft's object id; 2 until the first position block. No object at or below
// it is ever moved, released or removed.
inline std::atomic<std::uint32_t> gv_userObjectId{2};
inline bool gf_isAiObject(std::uint32_t objectid) { return objectid > gv_userObjectId.load(); }

// A creation sent to the simulator: the callsign ties the new object to its record, the
// send id ties a refusal to it.
struct PendingCreate {
  std::uint32_t sendId = 0;
  std::uint32_t hexid = 0;
  std::string callsign;
};

// Both touched only on the SimClient thread.
inline std::vector<std::uint32_t> gAddedObjects;  // ObjectAdded, not yet seen in a by-type block
inline std::vector<PendingCreate> gPendingCreates;

// Hands a notice to the engine.
void gf_postNotice(const SimNotice& notice);

// A request of the session failed: shown and logged, no further requests in this run, and
// the run ends with SIMCONNECT ERROR (restart after 9 seconds).
void lf_simRequestError();

// Everything of the simulator link that belongs to one run, back to its start: its flags, the
// user object id, the command queues, the user aircraft's data, title and stand.
void gf_resetSimLink();

}  // namespace orv
