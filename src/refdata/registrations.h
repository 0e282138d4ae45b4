#pragma once
// The known aircraft by registration: one sorted array, binary searched at the rate of the feed.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "refdata/ac_code.h"

namespace orv {

struct DbaseRecord {
  std::string reg;  // as the dbase spells it, for instance with its dash
  AcCode code;      // fromRegTable always set
};

// Sorted by reg, each reg once.
extern std::vector<DbaseRecord> dbaseRecords;

// Sorts by reg, keeps the first of equal regs (file order among them), releases spare room.
void lf_setDbaseRecords(std::vector<DbaseRecord> records);

// The spellings under which a registration may stand in the table, in the order of trial:
// feeds often drop the dash, so "PHBXA" tries "PH-BXA", "P-HBXA", then "PHBXA".
std::vector<std::string> registrationVariants(std::string_view reg);
std::optional<AcCode> lookupRegistration(std::string_view reg);
// The first registration of the array shorter than 6 characters that stands in title; empty when none.
std::string findRegistrationInTitle(std::string_view title);

}  // namespace orv
