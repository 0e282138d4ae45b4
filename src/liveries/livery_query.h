#pragma once
// What the matching reads of an aircraft and what it writes back. The caller copies the fields
// in from its aircraft record (live or parked) and takes title and reverser back.
#include <cstdint>
#include <string_view>

#include "refdata/ac_code.h"

namespace orv {

struct LiveryQuery {
  AcCode code;
  std::string_view reg;          // registration, may be empty
  std::string_view cs;           // callsign, for the log
  std::int32_t acClass = 0;      // the aircraft's class, which is the model category
  std::string_view description;  // the aircraft as the log names it (gf_acText)
  std::string_view title;        // the result, a view on a stored title; empty: no livery
  std::uint8_t reverser = 0;     // live only: the title is of a model that reverses thrust ("FSLTL_")
};

// The stand of a parked aircraft, as far as the matching reads it.
struct LiveryStand {
  std::string_view id;
  bool cargo = false;
};

}  // namespace orv
