// The SimConnect calls on Windows, bound at run time: each call goes to the function of the same
// name in the simulator's SimConnect.dll, resolved with GetProcAddress, or to the stand-in
// simulator's entry. The program thus needs neither the SDK to build nor the DLL to start.
// Until chooseServer rebinds them, the calls go to the stand-in, which the tests drive.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

// After <windows.h>, whose definitions of the shared types and macros then stand.
#include "platform/simconnect/simconnect_server.h"
#include "platform/simconnect/simconnect_subset.h"
#include "platform/simconnect/standin_entry.h"

#include <cstdlib>
#include <string>

// Every call of the subset, by its SDK name.
#define ORV_SIMCONNECT_CALLS(X)                                                                     \
  X(SimConnect_Open)                                                                                \
  X(SimConnect_Close)                                                                               \
  X(SimConnect_CallDispatch)                                                                        \
  X(SimConnect_GetLastSentPacketID)                                                                 \
  X(SimConnect_SubscribeToSystemEvent)                                                              \
  X(SimConnect_AddToDataDefinition)                                                                 \
  X(SimConnect_MapClientEventToSimEvent)                                                            \
  X(SimConnect_AddClientEventToNotificationGroup)                                                   \
  X(SimConnect_SetNotificationGroupPriority)                                                        \
  X(SimConnect_RequestDataOnSimObject)                                                              \
  X(SimConnect_RequestDataOnSimObjectType)                                                          \
  X(SimConnect_SetDataOnSimObject)                                                                  \
  X(SimConnect_TransmitClientEvent)                                                                 \
  X(SimConnect_AICreateNonATCAircraft)                                                              \
  X(SimConnect_AIRemoveObject)                                                                      \
  X(SimConnect_AIReleaseControl)                                                                    \
  X(SimConnect_AISetAircraftFlightPlan)                                                             \
  X(SimConnect_AddToFacilityDefinition)                                                             \
  X(SimConnect_RequestFacilityData)

// The stand-in's entries (standin_api.cpp), each of the type of its call.
#define ORV_DECLARE_STANDIN(call) extern "C" decltype(call) ORV_STANDIN_ENTRY(call);
ORV_SIMCONNECT_CALLS(ORV_DECLARE_STANDIN)
#undef ORV_DECLARE_STANDIN

namespace orv::simconnect {

namespace {

struct Calls {
#define ORV_MEMBER(call) decltype(&::call) call = nullptr;
  ORV_SIMCONNECT_CALLS(ORV_MEMBER)
#undef ORV_MEMBER
};

constexpr Calls standInCalls() {
  Calls c;
#define ORV_BIND_STANDIN(call) c.call = &ORV_STANDIN_ENTRY(call);
  ORV_SIMCONNECT_CALLS(ORV_BIND_STANDIN)
#undef ORV_BIND_STANDIN
  return c;
}

// Rebound by chooseServer before any SimConnect call and its threads start, then only read.
constinit Calls gCalls = standInCalls();

template <class Function>
Function resolve(HMODULE module, const char* name) {
  // Through the generic function pointer type, which converts to any other without a warning.
  return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
}

// Loads the DLL and resolves every call; the name of the first missing call when one lacks.
std::string bindLibrary(const std::filesystem::path& file, Calls& out) {
  HMODULE module = LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (!module) return "cannot be loaded (error " + std::to_string(GetLastError()) + ")";
  Calls c;
#define ORV_BIND_LIBRARY(call)                              \
  c.call = resolve<decltype(c.call)>(module, #call);        \
  if (!c.call) {                                            \
    FreeLibrary(module);                                    \
    return "has no " #call;                                 \
  }
  ORV_SIMCONNECT_CALLS(ORV_BIND_LIBRARY)
#undef ORV_BIND_LIBRARY
  out = c;  // the module stays loaded for the life of the process
  return {};
}

std::filesystem::path programFolder() {
  std::wstring buffer(32768, L'\0');
  const DWORD length = GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
  buffer.resize(length);
  return std::filesystem::path(buffer).parent_path();
}

std::vector<std::filesystem::path> candidates() {
  std::vector<std::filesystem::path> files{programFolder() / "SimConnect.dll"};
  for (const wchar_t* variable : {L"MSFS_SDK", L"MSFS2024_SDK"}) {
    const wchar_t* sdk = _wgetenv(variable);
    if (sdk && *sdk) files.push_back(std::filesystem::path(sdk) / "SimConnect SDK" / "lib" / "SimConnect.dll");
  }
  return files;
}

}  // namespace

ServerChoice chooseServer(bool standInAllowed) {
  ServerChoice choice;
  for (const std::filesystem::path& file : candidates()) {
    choice.looked.push_back(file);
    std::error_code ec;
    if (!std::filesystem::exists(file, ec)) continue;
    Calls bound;
    const std::string problem = bindLibrary(file, bound);
    if (!problem.empty()) {
      choice.refused.push_back(file.string() + " " + problem);
      continue;
    }
    gCalls = bound;
    choice.server = Server::Library;
    choice.library = file;
    return choice;
  }
  // Without a library the calls go to the stand-in; one that is never started answers every
  // call as a simulator that is not running does.
  gCalls = standInCalls();
  choice.server = standInAllowed ? Server::StandIn : Server::None;
  return choice;
}

}  // namespace orv::simconnect

using orv::simconnect::gCalls;

SIMCONNECTAPI SimConnect_Open(HANDLE* phSimConnect, LPCSTR szName, HWND hWnd, DWORD UserEventWin32,
                              HANDLE hEventHandle, DWORD ConfigIndex) {
  return gCalls.SimConnect_Open(phSimConnect, szName, hWnd, UserEventWin32, hEventHandle, ConfigIndex);
}

SIMCONNECTAPI SimConnect_Close(HANDLE hSimConnect) { return gCalls.SimConnect_Close(hSimConnect); }

SIMCONNECTAPI SimConnect_CallDispatch(HANDLE hSimConnect, DispatchProc pfcnDispatch, void* pContext) {
  return gCalls.SimConnect_CallDispatch(hSimConnect, pfcnDispatch, pContext);
}

SIMCONNECTAPI SimConnect_GetLastSentPacketID(HANDLE hSimConnect, DWORD* pdwError) {
  return gCalls.SimConnect_GetLastSentPacketID(hSimConnect, pdwError);
}

SIMCONNECTAPI SimConnect_SubscribeToSystemEvent(HANDLE hSimConnect, SIMCONNECT_CLIENT_EVENT_ID EventID,
                                                const char* SystemEventName) {
  return gCalls.SimConnect_SubscribeToSystemEvent(hSimConnect, EventID, SystemEventName);
}

SIMCONNECTAPI SimConnect_AddToDataDefinition(HANDLE hSimConnect, SIMCONNECT_DATA_DEFINITION_ID DefineID,
                                             const char* DatumName, const char* UnitsName,
                                             SIMCONNECT_DATATYPE DatumType, float fEpsilon, DWORD DatumID) {
  return gCalls.SimConnect_AddToDataDefinition(hSimConnect, DefineID, DatumName, UnitsName, DatumType, fEpsilon,
                                               DatumID);
}

SIMCONNECTAPI SimConnect_MapClientEventToSimEvent(HANDLE hSimConnect, SIMCONNECT_CLIENT_EVENT_ID EventID,
                                                  const char* EventName) {
  return gCalls.SimConnect_MapClientEventToSimEvent(hSimConnect, EventID, EventName);
}

SIMCONNECTAPI SimConnect_AddClientEventToNotificationGroup(HANDLE hSimConnect, SIMCONNECT_NOTIFICATION_GROUP_ID GroupID,
                                                           SIMCONNECT_CLIENT_EVENT_ID EventID, BOOL bMaskable) {
  return gCalls.SimConnect_AddClientEventToNotificationGroup(hSimConnect, GroupID, EventID, bMaskable);
}

SIMCONNECTAPI SimConnect_SetNotificationGroupPriority(HANDLE hSimConnect, SIMCONNECT_NOTIFICATION_GROUP_ID GroupID,
                                                      DWORD uPriority) {
  return gCalls.SimConnect_SetNotificationGroupPriority(hSimConnect, GroupID, uPriority);
}

SIMCONNECTAPI SimConnect_RequestDataOnSimObject(HANDLE hSimConnect, SIMCONNECT_DATA_REQUEST_ID RequestID,
                                                SIMCONNECT_DATA_DEFINITION_ID DefineID, SIMCONNECT_OBJECT_ID ObjectID,
                                                SIMCONNECT_PERIOD Period, SIMCONNECT_DATA_REQUEST_FLAG Flags,
                                                DWORD origin, DWORD interval, DWORD limit) {
  return gCalls.SimConnect_RequestDataOnSimObject(hSimConnect, RequestID, DefineID, ObjectID, Period, Flags, origin,
                                                  interval, limit);
}

SIMCONNECTAPI SimConnect_RequestDataOnSimObjectType(HANDLE hSimConnect, SIMCONNECT_DATA_REQUEST_ID RequestID,
                                                    SIMCONNECT_DATA_DEFINITION_ID DefineID, DWORD dwRadiusMeters,
                                                    SIMCONNECT_SIMOBJECT_TYPE type) {
  return gCalls.SimConnect_RequestDataOnSimObjectType(hSimConnect, RequestID, DefineID, dwRadiusMeters, type);
}

SIMCONNECTAPI SimConnect_SetDataOnSimObject(HANDLE hSimConnect, SIMCONNECT_DATA_DEFINITION_ID DefineID,
                                            SIMCONNECT_OBJECT_ID ObjectID, SIMCONNECT_DATA_SET_FLAG Flags,
                                            DWORD ArrayCount, DWORD cbUnitSize, void* pDataSet) {
  return gCalls.SimConnect_SetDataOnSimObject(hSimConnect, DefineID, ObjectID, Flags, ArrayCount, cbUnitSize,
                                              pDataSet);
}

SIMCONNECTAPI SimConnect_TransmitClientEvent(HANDLE hSimConnect, SIMCONNECT_OBJECT_ID ObjectID,
                                             SIMCONNECT_CLIENT_EVENT_ID EventID, DWORD dwData,
                                             SIMCONNECT_NOTIFICATION_GROUP_ID GroupID, SIMCONNECT_EVENT_FLAG Flags) {
  return gCalls.SimConnect_TransmitClientEvent(hSimConnect, ObjectID, EventID, dwData, GroupID, Flags);
}

SIMCONNECTAPI SimConnect_AICreateNonATCAircraft(HANDLE hSimConnect, const char* szContainerTitle,
                                                const char* szTailNumber, SIMCONNECT_DATA_INITPOSITION InitPos,
                                                SIMCONNECT_DATA_REQUEST_ID RequestID) {
  return gCalls.SimConnect_AICreateNonATCAircraft(hSimConnect, szContainerTitle, szTailNumber, InitPos, RequestID);
}

SIMCONNECTAPI SimConnect_AIRemoveObject(HANDLE hSimConnect, SIMCONNECT_OBJECT_ID ObjectID,
                                        SIMCONNECT_DATA_REQUEST_ID RequestID) {
  return gCalls.SimConnect_AIRemoveObject(hSimConnect, ObjectID, RequestID);
}

SIMCONNECTAPI SimConnect_AIReleaseControl(HANDLE hSimConnect, SIMCONNECT_OBJECT_ID ObjectID,
                                          SIMCONNECT_DATA_REQUEST_ID RequestID) {
  return gCalls.SimConnect_AIReleaseControl(hSimConnect, ObjectID, RequestID);
}

SIMCONNECTAPI SimConnect_AISetAircraftFlightPlan(HANDLE hSimConnect, SIMCONNECT_OBJECT_ID ObjectID,
                                                 const char* szFlightPlanPath, SIMCONNECT_DATA_REQUEST_ID RequestID) {
  return gCalls.SimConnect_AISetAircraftFlightPlan(hSimConnect, ObjectID, szFlightPlanPath, RequestID);
}

SIMCONNECTAPI SimConnect_AddToFacilityDefinition(HANDLE hSimConnect, SIMCONNECT_DATA_DEFINITION_ID DefineID,
                                                 const char* FieldName) {
  return gCalls.SimConnect_AddToFacilityDefinition(hSimConnect, DefineID, FieldName);
}

SIMCONNECTAPI SimConnect_RequestFacilityData(HANDLE hSimConnect, SIMCONNECT_DATA_DEFINITION_ID DefineID,
                                             SIMCONNECT_DATA_REQUEST_ID RequestID, const char* ICAO,
                                             const char* Region) {
  return gCalls.SimConnect_RequestFacilityData(hSimConnect, DefineID, RequestID, ICAO, Region);
}
