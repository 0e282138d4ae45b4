#pragma once
// Every four-letter airport code of the world, from input/ICAO_airports.txt: the scan tells
// an airport code from any other four letters by it.
#include <unordered_set>

#include "foundation/fixed_code.h"

namespace orv {

extern std::unordered_set<FixedCode<4>> gAllIcao;

// Fills gAllIcao anew. Throws UserErrorException 522 when the file is missing.
void readAllIcao();

}  // namespace orv
