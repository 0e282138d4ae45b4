#pragma once
// The engine's tables and the queues between it and the other threads. Everything belongs to
// the run thread unless a lock is named.
#include <cstdint>
#include <deque>
#include <list>
#include <mutex>
#include <string>
#include <vector>

#include "engine/live_aircraft.h"

namespace orv {

// The engine's tick of 10 ms; starts at 0 when the run loop starts.
inline std::int32_t gv_tick = 0;

inline std::vector<LiveAc> gLiveAc;
inline std::vector<AcRecord> gParkedAc;

// Decoded traffic from the Traffic Reader thread; the reader appends only while
// gv_feedEnabled is set. Both under gTrafficMutex.
inline std::mutex gTrafficMutex;
inline std::deque<TrafficMsg> gTrafficQueue;
inline bool gv_feedEnabled = false;

inline std::vector<std::uint32_t> gAddStack;  // hexids ready to be created, last in first out
inline std::deque<AddRequest> gLiveAddQueue;
inline std::deque<AddRequest> gParkedAddQueue;
inline std::deque<std::uint32_t> gRemoveQueue;  // objectids
inline std::list<std::uint32_t> gRouteQueue;    // hexids whose learned flight is to be looked up
inline std::vector<std::string> gGhostList;

// Every call into the simulator, gEventOut and the exchange of the position buffers.
// Taken inside gTrafficMutex or gNoticeMutex, never the other way round.
inline std::mutex gSimMutex;
inline std::vector<EventOut> gEventOut;

// Positions: the engine fills `engine` during a step; the client sends `client`.
struct PositionBuffers {
  std::vector<PositionOut> engine;
  std::vector<PositionOut> client;
};
inline PositionBuffers gPositionOut;

inline std::mutex gNoticeMutex;
inline std::vector<SimNotice> gSimNotices;
inline std::vector<SimNotice> gNewObjects;  // created objects waiting out their first 200 ticks

// Reserves the containers once per process, so that running does not reallocate.
void gf_reserveEngineTables();
// Empties every table and queue: the simulator connection ended or the flight was reset.
void gf_clearEngineTables();

// The index of the live aircraft with this hexid, or -1; a linear search.
int gf_findLiveAc(std::uint32_t hexid);
int gf_findLiveAcByObject(std::uint32_t objectid);
// Appends a record; returns its index.
std::size_t gf_addLiveAc(LiveAc&& ac);
// Erases by moving the last record over the erased one; the order of the others changes.
void gf_eraseLiveAcAt(std::size_t index);
// Drops every record marked `erase` or `cancelled`, keeping the order of the rest.
void gf_compactLiveAc();

// End of an engine step: hand the positions to the client thread if gSimMutex is free,
// else drop them, since the next step brings newer ones.
void gf_exchangePositionOut();

}  // namespace orv
