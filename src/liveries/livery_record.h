#pragma once
// One installed livery as a scan finds it and the catalogue file keeps it, and the order in
// which lists of them are kept.
#include <cstdint>
#include <list>
#include <string>

#include "refdata/ac_code.h"

namespace orv {

struct LiveryRecord {
  std::string title;               // the name by which the simulator creates the livery
  std::string regcode;             // the one registration the livery names; empty when none or several
  AcCode code;                     // airline, second airline, model, cargo
  std::uint16_t folderNumber = 0;  // rank 1 to 10 of the scanned folder; 0 once read from the catalogue
};

// Sorts by airline code, code of the second airline, model code (as texts) and title, bytes
// compared, a shorter prefix first. Stable, so that equal records keep their order.
void gf_sortLiveries(std::list<LiveryRecord>& list);

}  // namespace orv
