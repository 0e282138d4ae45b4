#pragma once
// The engine's tables. They belong to the run thread alone; what crosses to other threads goes
// through the hand-overs (traffic_queue.h, sim_notice_queue.h, position_exchange.h).
#include <cstdint>
#include <deque>
#include <list>
#include <string>
#include <vector>

#include "engine/live_aircraft.h"

namespace orv {

inline std::vector<LiveAc> gLiveAc;
inline std::vector<AcRecord> gParkedAc;

inline std::vector<std::uint32_t> gAddStack;  // hexids ready to be created, last in first out
inline std::deque<AddRequest> gLiveAddQueue;
inline std::deque<AddRequest> gParkedAddQueue;
inline std::deque<std::uint32_t> gRemoveQueue;  // objectids
inline std::list<std::uint32_t> gRouteQueue;    // hexids whose learned flight is to be looked up
inline std::vector<std::string> gGhostList;

inline std::vector<SimNotice> gNewObjects;  // created objects waiting out their first 200 ticks

// Reserves the containers once per process, so that running does not reallocate.
void gf_reserveEngineTables();
// Empties every table and hand-over of the engine and closes the feed's way in: the
// simulator connection ended or the flight was reset.
void gf_clearEngineTables();

// The engine's run state back to its start: the tables and hand-overs empty, the feed's way
// in closed, the tick at 0.
void gf_resetEngine();

// The index of the live aircraft with this hexid, or -1; a linear search.
int gf_findLiveAc(std::uint32_t hexid);
int gf_findLiveAcByObject(std::uint32_t objectid);
// Appends a record; returns its index.
std::size_t gf_addLiveAc(LiveAc&& ac);
// Erases by moving the last record over the erased one; the order of the others changes.
void gf_eraseLiveAcAt(std::size_t index);
// Drops every record marked `erase` or `cancelled`, keeping the order of the rest.
void gf_compactLiveAc();

}  // namespace orv
