#pragma once
// Facility data of the stand-in: a client builds a definition keyword by keyword ("OPEN AIRPORT",
// fields, "CLOSE AIRPORT"), and a request is answered with one record per element, laid out in
// the order of the definition, then the end record.
#include <string>
#include <vector>

#include "platform/simconnect/simconnect_subset.h"
#include "platform/simconnect/standin_records.h"
#include "platform/simconnect/standin_scenario.h"

namespace orv::standin::detail {

enum class FacilityElement { Airport, TaxiParking, Helipad };

struct FacilityNode {
  FacilityElement element = FacilityElement::Airport;
  std::vector<int> fields;    // codes of the element's field table, in order
  std::vector<int> children;  // node indexes
};

struct FacilityDefinition {
  std::vector<std::string> keywords;
  std::vector<FacilityNode> nodes;  // node 0 is the airport
  std::vector<int> open;            // nodes opened and not yet closed
  bool complete = false;
};

// SIMCONNECT_EXCEPTION_NONE, or the exception the keyword earns (the definition is unchanged then).
DWORD addFacilityKeyword(FacilityDefinition& definition, const char* keyword);

// The answer to a request for one airport: its records, ending with the end record; only the
// end record when the airport is unknown.
std::vector<Record> facilityReplies(const FacilityDefinition& definition, const AirportEntry* airport,
                                    DWORD requestId, DWORD& lastUniqueId, DWORD version);

}  // namespace orv::standin::detail
