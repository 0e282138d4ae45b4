#pragma once
// The records that the stand-in sends to its clients, built byte for byte in the layout of the
// SDK's receive structures.
#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/simconnect/simconnect_subset.h"

namespace orv::standin::detail {

using Record = std::vector<std::uint8_t>;

// dwVersion of every record: the server's SimConnect major version.
Record makeOpen(DWORD version, std::string_view applicationName, const std::array<DWORD, 4>& applicationVersion,
                const std::array<DWORD, 4>& simConnectVersion);
Record makeQuit(DWORD version);
Record makeException(DWORD version, DWORD exception, DWORD sendId, DWORD index);
Record makeEvent(DWORD version, DWORD eventId, DWORD data);
Record makeFileNameEvent(DWORD version, DWORD eventId, std::string_view file);
Record makeObjectAddRemove(DWORD version, DWORD eventId, DWORD objectId, SIMCONNECT_SIMOBJECT_TYPE type);
Record makeFrame(DWORD version, DWORD eventId, float frameRate, float simSpeed);
// SIMOBJECT_DATA (byType false) or SIMOBJECT_DATA_BYTYPE; the block follows the header.
Record makeObjectData(DWORD version, bool byType, DWORD requestId, DWORD objectId, DWORD defineId, DWORD flags,
                      DWORD entry, DWORD outOf, DWORD defineCount, const std::vector<std::uint8_t>& block);
// The object id of a created object, sent with its request id (a record the program ignores).
Record makeAssignedObjectId(DWORD version, DWORD requestId, DWORD objectId);
Record makeFacilityData(DWORD version, DWORD userRequestId, DWORD uniqueRequestId, DWORD parentUniqueRequestId,
                        DWORD type, bool isListItem, DWORD itemIndex, DWORD listSize,
                        const std::vector<std::uint8_t>& block);
Record makeFacilityDataEnd(DWORD version, DWORD requestId);

}  // namespace orv::standin::detail
