#pragma once
// Flight plan files: a live aircraft with a known origin and destination gets a small .pln
// file in <AppData>/Orvane/orig_dest, which MSFS 2020 is told about; MSFS 2024 reads none.
#include <filesystem>
#include <string>

#include "engine/live_aircraft.h"

namespace orv {

// The plan of a live aircraft with a known origin and destination, and its removal.
void gf_setFlightPlan(LiveAc& ac);
void gf_removeFlightPlan(LiveAc& ac);

// Creates the folder with its parents; true when it is there afterwards.
bool gf_createFlightPlanFolder();
// Deletes the folder with everything in it, if one was made.
void gf_removeFlightPlanFolder();

// <AppData>/Orvane/orig_dest/<objectid>.pln
std::filesystem::path gf_flightPlanFile(std::uint32_t objectid);
// The text of a plan: IFR for Buzjets, Large and Heavy, else VFR.
std::string gf_flightPlanText(std::int32_t acClass, std::string_view from, std::string_view to);

}  // namespace orv
