#include "platform/simconnect/standin_records.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace orv::standin::detail {
namespace {

static_assert(sizeof(SIMCONNECT_RECV) == 12);
static_assert(sizeof(SIMCONNECT_RECV_EXCEPTION) == 24);
static_assert(sizeof(SIMCONNECT_RECV_OPEN) == 308);
static_assert(sizeof(SIMCONNECT_RECV_EVENT) == 24);
static_assert(sizeof(SIMCONNECT_RECV_EVENT_FILENAME) == 24 + MAX_PATH + 4);
static_assert(sizeof(SIMCONNECT_RECV_EVENT_OBJECT_ADDREMOVE) == 28);
static_assert(sizeof(SIMCONNECT_RECV_EVENT_FRAME) == 32);
// Both data records end in a DWORD that is the first of the block, at byte 40.
static_assert(sizeof(SIMCONNECT_RECV_SIMOBJECT_DATA) == 44);
static_assert(sizeof(SIMCONNECT_RECV_FACILITY_DATA) == 44);
constexpr std::size_t kBlockOffset = 40;
static_assert(sizeof(SIMCONNECT_DATA_INITPOSITION) == 56);

// The SDK's record of an assigned object id; the program never reads it, so it is not declared.
#pragma pack(push, 1)
struct AssignedObjectId : SIMCONNECT_RECV {
  DWORD dwRequestID;
  DWORD dwObjectID;
};
#pragma pack(pop)

template <class T>
void stamp(T& r, DWORD version, SIMCONNECT_RECV_ID id, std::size_t size) {
  r.dwSize = static_cast<DWORD>(size);
  r.dwVersion = version;
  r.dwID = static_cast<DWORD>(id);
}

template <class T>
Record bytesOf(const T& r) {
  Record out(sizeof(T));
  std::memcpy(out.data(), &r, sizeof(T));
  return out;
}

// A header up to the first data byte, then the block.
template <class T>
Record withBlock(const T& header, std::size_t dataOffset, const std::vector<std::uint8_t>& block) {
  Record out(dataOffset + block.size());
  std::memcpy(out.data(), &header, dataOffset);
  std::copy(block.begin(), block.end(), out.begin() + static_cast<std::ptrdiff_t>(dataOffset));
  return out;
}

void copyText(char* target, std::size_t size, std::string_view text) {
  const std::size_t n = std::min(text.size(), size - 1);
  std::memcpy(target, text.data(), n);
  target[n] = '\0';
}

}  // namespace

Record makeOpen(DWORD version, std::string_view applicationName, const std::array<DWORD, 4>& app,
                const std::array<DWORD, 4>& sc) {
  SIMCONNECT_RECV_OPEN r{};
  stamp(r, version, SIMCONNECT_RECV_ID_OPEN, sizeof r);
  copyText(r.szApplicationName, sizeof r.szApplicationName, applicationName);
  r.dwApplicationVersionMajor = app[0];
  r.dwApplicationVersionMinor = app[1];
  r.dwApplicationBuildMajor = app[2];
  r.dwApplicationBuildMinor = app[3];
  r.dwSimConnectVersionMajor = sc[0];
  r.dwSimConnectVersionMinor = sc[1];
  r.dwSimConnectBuildMajor = sc[2];
  r.dwSimConnectBuildMinor = sc[3];
  return bytesOf(r);
}

Record makeQuit(DWORD version) {
  SIMCONNECT_RECV_QUIT r{};
  stamp(r, version, SIMCONNECT_RECV_ID_QUIT, sizeof r);
  return bytesOf(r);
}

Record makeException(DWORD version, DWORD exception, DWORD sendId, DWORD index) {
  SIMCONNECT_RECV_EXCEPTION r{};
  stamp(r, version, SIMCONNECT_RECV_ID_EXCEPTION, sizeof r);
  r.dwException = exception;
  r.dwSendID = sendId;
  r.dwIndex = index;
  return bytesOf(r);
}

Record makeEvent(DWORD version, DWORD eventId, DWORD data) {
  SIMCONNECT_RECV_EVENT r{};
  stamp(r, version, SIMCONNECT_RECV_ID_EVENT, sizeof r);
  r.uGroupID = SIMCONNECT_RECV_EVENT::UNKNOWN_GROUP;
  r.uEventID = eventId;
  r.dwData = data;
  return bytesOf(r);
}

Record makeFileNameEvent(DWORD version, DWORD eventId, std::string_view file) {
  SIMCONNECT_RECV_EVENT_FILENAME r{};
  stamp(r, version, SIMCONNECT_RECV_ID_EVENT_FILENAME, sizeof r);
  r.uGroupID = SIMCONNECT_RECV_EVENT::UNKNOWN_GROUP;
  r.uEventID = eventId;
  copyText(r.szFileName, sizeof r.szFileName, file);
  return bytesOf(r);
}

Record makeObjectAddRemove(DWORD version, DWORD eventId, DWORD objectId, SIMCONNECT_SIMOBJECT_TYPE type) {
  SIMCONNECT_RECV_EVENT_OBJECT_ADDREMOVE r{};
  stamp(r, version, SIMCONNECT_RECV_ID_EVENT_OBJECT_ADDREMOVE, sizeof r);
  r.uGroupID = SIMCONNECT_RECV_EVENT::UNKNOWN_GROUP;
  r.uEventID = eventId;
  r.dwData = objectId;
  r.eObjType = type;
  return bytesOf(r);
}

Record makeFrame(DWORD version, DWORD eventId, float frameRate, float simSpeed) {
  SIMCONNECT_RECV_EVENT_FRAME r{};
  stamp(r, version, SIMCONNECT_RECV_ID_EVENT_FRAME, sizeof r);
  r.uGroupID = SIMCONNECT_RECV_EVENT::UNKNOWN_GROUP;
  r.uEventID = eventId;
  r.fFrameRate = frameRate;
  r.fSimSpeed = simSpeed;
  return bytesOf(r);
}

Record makeObjectData(DWORD version, bool byType, DWORD requestId, DWORD objectId, DWORD defineId, DWORD flags,
                      DWORD entry, DWORD outOf, DWORD defineCount, const std::vector<std::uint8_t>& block) {
  constexpr std::size_t offset = kBlockOffset;
  SIMCONNECT_RECV_SIMOBJECT_DATA r{};
  stamp(r, version, byType ? SIMCONNECT_RECV_ID_SIMOBJECT_DATA_BYTYPE : SIMCONNECT_RECV_ID_SIMOBJECT_DATA,
        offset + block.size());
  r.dwRequestID = requestId;
  r.dwObjectID = objectId;
  r.dwDefineID = defineId;
  r.dwFlags = flags;
  r.dwentrynumber = entry;
  r.dwoutof = outOf;
  r.dwDefineCount = defineCount;
  return withBlock(r, offset, block);
}

Record makeAssignedObjectId(DWORD version, DWORD requestId, DWORD objectId) {
  AssignedObjectId r{};
  stamp(r, version, SIMCONNECT_RECV_ID_ASSIGNED_OBJECT_ID, sizeof r);
  r.dwRequestID = requestId;
  r.dwObjectID = objectId;
  return bytesOf(r);
}

Record makeFacilityData(DWORD version, DWORD userRequestId, DWORD uniqueRequestId, DWORD parentUniqueRequestId,
                        DWORD type, bool isListItem, DWORD itemIndex, DWORD listSize,
                        const std::vector<std::uint8_t>& block) {
  constexpr std::size_t offset = kBlockOffset;
  SIMCONNECT_RECV_FACILITY_DATA r{};
  stamp(r, version, SIMCONNECT_RECV_ID_FACILITY_DATA, offset + block.size());
  r.UserRequestId = userRequestId;
  r.UniqueRequestId = uniqueRequestId;
  r.ParentUniqueRequestId = parentUniqueRequestId;
  r.Type = type;
  r.IsListItem = isListItem ? 1 : 0;
  r.ItemIndex = itemIndex;
  r.ListSize = listSize;
  return withBlock(r, offset, block);
}

Record makeFacilityDataEnd(DWORD version, DWORD requestId) {
  SIMCONNECT_RECV_FACILITY_DATA_END r{};
  stamp(r, version, SIMCONNECT_RECV_ID_FACILITY_DATA_END, sizeof r);
  r.RequestId = requestId;
  return bytesOf(r);
}

}  // namespace orv::standin::detail
