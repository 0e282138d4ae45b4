#pragma once
// What an aircraft looks like: its operator(s) and type, as indexes into the code tables.
// Eight bytes, copied as one 64-bit value; indexes are valid within one run only.
#include <cstdint>

namespace orv {

struct AcCode {
  uint16_t airline = 0;
  uint16_t airline2 = 0;
  uint16_t acType = 0;
  uint8_t cargo = 0;
  uint8_t fromRegTable = 0;

  // "Same code" everywhere means the same operators and type; cargo and origin don't count.
  bool sameAs(const AcCode& o) const {
    return airline == o.airline && airline2 == o.airline2 && acType == o.acType;
  }
};
static_assert(sizeof(AcCode) == 8);

}  // namespace orv
