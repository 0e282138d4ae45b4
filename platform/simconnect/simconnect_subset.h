#pragma once
// The part of the simulator's SimConnect interface that the program uses, declared with the
// names, types, field order and 1-byte packing of the SDK's own SimConnect.h, so that the same
// logic compiles against that header on Windows. Here the calls are served by the in-process
// stand-in simulator (standin_control.h).
//
// Enumerations are positional in the SDK; each is declared up to the last member the program
// needs, never with a gap.
#include <cstdint>

// The Windows types by their own definitions, so that no logic file sees <windows.h> and its
// macros; a platform file may include <windows.h> before this header, and the same typedefs
// then simply repeat. DWORD and HRESULT are 32 bits on both systems: record layouts depend on it.
#if defined(_WIN32)
typedef unsigned long DWORD;
typedef long HRESULT;
#define ORV_SIMCONNECT_CALL __stdcall
#else
typedef std::uint32_t DWORD;
typedef std::int32_t HRESULT;
#define ORV_SIMCONNECT_CALL
#endif
typedef int BOOL;
typedef void* HANDLE;
typedef struct HWND__* HWND;
typedef const char* LPCSTR;
#ifndef CALLBACK
#define CALLBACK ORV_SIMCONNECT_CALL
#endif
#ifndef S_OK
#define S_OK ((HRESULT)0L)
#endif
#ifndef E_FAIL
#define E_FAIL ((HRESULT)0x80004005L)
#endif
#ifndef SUCCEEDED
#define SUCCEEDED(hr) (((HRESULT)(hr)) >= 0)
#endif
#ifndef FAILED
#define FAILED(hr) (((HRESULT)(hr)) < 0)
#endif
#ifndef FALSE
#define FALSE 0
#endif
#ifndef TRUE
#define TRUE 1
#endif
#ifndef MAX_PATH
#define MAX_PATH 260
#endif

#ifndef DWORD_MAX
#define DWORD_MAX 0xFFFFFFFF
#endif

#define SIMCONNECT_STRING(name, size) char name[size]
#define SIMCONNECT_STRINGV(name) char name[1]

static const DWORD SIMCONNECT_UNUSED = DWORD_MAX;
static const DWORD SIMCONNECT_OBJECT_ID_USER = 0;

typedef DWORD SIMCONNECT_OBJECT_ID;
typedef DWORD SIMCONNECT_NOTIFICATION_GROUP_ID;
typedef DWORD SIMCONNECT_CLIENT_EVENT_ID;
typedef DWORD SIMCONNECT_DATA_DEFINITION_ID;
typedef DWORD SIMCONNECT_DATA_REQUEST_ID;

enum SIMCONNECT_RECV_ID {
  SIMCONNECT_RECV_ID_NULL,
  SIMCONNECT_RECV_ID_EXCEPTION,
  SIMCONNECT_RECV_ID_OPEN,
  SIMCONNECT_RECV_ID_QUIT,
  SIMCONNECT_RECV_ID_EVENT,
  SIMCONNECT_RECV_ID_EVENT_OBJECT_ADDREMOVE,
  SIMCONNECT_RECV_ID_EVENT_FILENAME,
  SIMCONNECT_RECV_ID_EVENT_FRAME,
  SIMCONNECT_RECV_ID_SIMOBJECT_DATA,
  SIMCONNECT_RECV_ID_SIMOBJECT_DATA_BYTYPE,
  SIMCONNECT_RECV_ID_WEATHER_OBSERVATION,
  SIMCONNECT_RECV_ID_CLOUD_STATE,
  SIMCONNECT_RECV_ID_ASSIGNED_OBJECT_ID,
  SIMCONNECT_RECV_ID_RESERVED_KEY,
  SIMCONNECT_RECV_ID_CUSTOM_ACTION,
  SIMCONNECT_RECV_ID_SYSTEM_STATE,
  SIMCONNECT_RECV_ID_CLIENT_DATA,
  SIMCONNECT_RECV_ID_EVENT_WEATHER_MODE,
  SIMCONNECT_RECV_ID_AIRPORT_LIST,
  SIMCONNECT_RECV_ID_VOR_LIST,
  SIMCONNECT_RECV_ID_NDB_LIST,
  SIMCONNECT_RECV_ID_WAYPOINT_LIST,
  SIMCONNECT_RECV_ID_EVENT_MULTIPLAYER_SERVER_STARTED,
  SIMCONNECT_RECV_ID_EVENT_MULTIPLAYER_CLIENT_STARTED,
  SIMCONNECT_RECV_ID_EVENT_MULTIPLAYER_SESSION_ENDED,
  SIMCONNECT_RECV_ID_EVENT_RACE_END,
  SIMCONNECT_RECV_ID_EVENT_RACE_LAP,
  // The SDK's PICK record sits here only in experimental builds of its header.
  SIMCONNECT_RECV_ID_EVENT_EX1,
  SIMCONNECT_RECV_ID_FACILITY_DATA,
  SIMCONNECT_RECV_ID_FACILITY_DATA_END,
};

enum SIMCONNECT_DATATYPE {
  SIMCONNECT_DATATYPE_INVALID,
  SIMCONNECT_DATATYPE_INT32,
  SIMCONNECT_DATATYPE_INT64,
  SIMCONNECT_DATATYPE_FLOAT32,
  SIMCONNECT_DATATYPE_FLOAT64,
  SIMCONNECT_DATATYPE_STRING8,
  SIMCONNECT_DATATYPE_STRING32,
  SIMCONNECT_DATATYPE_STRING64,
  SIMCONNECT_DATATYPE_STRING128,
  SIMCONNECT_DATATYPE_STRING256,
  SIMCONNECT_DATATYPE_STRING260,
  SIMCONNECT_DATATYPE_STRINGV,
};

enum SIMCONNECT_EXCEPTION {
  SIMCONNECT_EXCEPTION_NONE,
  SIMCONNECT_EXCEPTION_ERROR,
  SIMCONNECT_EXCEPTION_SIZE_MISMATCH,
  SIMCONNECT_EXCEPTION_UNRECOGNIZED_ID,
  SIMCONNECT_EXCEPTION_UNOPENED,
  SIMCONNECT_EXCEPTION_VERSION_MISMATCH,
  SIMCONNECT_EXCEPTION_TOO_MANY_GROUPS,
  SIMCONNECT_EXCEPTION_NAME_UNRECOGNIZED,
  SIMCONNECT_EXCEPTION_TOO_MANY_EVENT_NAMES,
  SIMCONNECT_EXCEPTION_EVENT_ID_DUPLICATE,
  SIMCONNECT_EXCEPTION_TOO_MANY_MAPS,
  SIMCONNECT_EXCEPTION_TOO_MANY_OBJECTS,
  SIMCONNECT_EXCEPTION_TOO_MANY_REQUESTS,
  SIMCONNECT_EXCEPTION_WEATHER_INVALID_PORT,
  SIMCONNECT_EXCEPTION_WEATHER_INVALID_METAR,
  SIMCONNECT_EXCEPTION_WEATHER_UNABLE_TO_GET_OBSERVATION,
  SIMCONNECT_EXCEPTION_WEATHER_UNABLE_TO_CREATE_STATION,
  SIMCONNECT_EXCEPTION_WEATHER_UNABLE_TO_REMOVE_STATION,
  SIMCONNECT_EXCEPTION_INVALID_DATA_TYPE,
  SIMCONNECT_EXCEPTION_INVALID_DATA_SIZE,
  SIMCONNECT_EXCEPTION_DATA_ERROR,
  SIMCONNECT_EXCEPTION_INVALID_ARRAY,
  SIMCONNECT_EXCEPTION_CREATE_OBJECT_FAILED,
  SIMCONNECT_EXCEPTION_LOAD_FLIGHTPLAN_FAILED,
  SIMCONNECT_EXCEPTION_OPERATION_INVALID_FOR_OBJECT_TYPE,
  SIMCONNECT_EXCEPTION_ILLEGAL_OPERATION,
  SIMCONNECT_EXCEPTION_ALREADY_SUBSCRIBED,
  SIMCONNECT_EXCEPTION_INVALID_ENUM,
  SIMCONNECT_EXCEPTION_DEFINITION_ERROR,
  SIMCONNECT_EXCEPTION_DUPLICATE_ID,
  SIMCONNECT_EXCEPTION_DATUM_ID,
  SIMCONNECT_EXCEPTION_OUT_OF_BOUNDS,
};

enum SIMCONNECT_SIMOBJECT_TYPE {
  SIMCONNECT_SIMOBJECT_TYPE_USER,
  SIMCONNECT_SIMOBJECT_TYPE_ALL,
  SIMCONNECT_SIMOBJECT_TYPE_AIRCRAFT,
  SIMCONNECT_SIMOBJECT_TYPE_HELICOPTER,
  SIMCONNECT_SIMOBJECT_TYPE_BOAT,
  SIMCONNECT_SIMOBJECT_TYPE_GROUND,
};

enum SIMCONNECT_PERIOD {
  SIMCONNECT_PERIOD_NEVER,
  SIMCONNECT_PERIOD_ONCE,
  SIMCONNECT_PERIOD_VISUAL_FRAME,
  SIMCONNECT_PERIOD_SIM_FRAME,
  SIMCONNECT_PERIOD_SECOND,
};

enum SIMCONNECT_FACILITY_DATA_TYPE {
  SIMCONNECT_FACILITY_DATA_AIRPORT,
  SIMCONNECT_FACILITY_DATA_RUNWAY,
  SIMCONNECT_FACILITY_DATA_START,
  SIMCONNECT_FACILITY_DATA_FREQUENCY,
  SIMCONNECT_FACILITY_DATA_HELIPAD,
  SIMCONNECT_FACILITY_DATA_APPROACH,
  SIMCONNECT_FACILITY_DATA_APPROACH_TRANSITION,
  SIMCONNECT_FACILITY_DATA_APPROACH_LEG,
  SIMCONNECT_FACILITY_DATA_FINAL_APPROACH_LEG,
  SIMCONNECT_FACILITY_DATA_MISSED_APPROACH_LEG,
  SIMCONNECT_FACILITY_DATA_DEPARTURE,
  SIMCONNECT_FACILITY_DATA_ARRIVAL,
  SIMCONNECT_FACILITY_DATA_RUNWAY_TRANSITION,
  SIMCONNECT_FACILITY_DATA_ENROUTE_TRANSITION,
  SIMCONNECT_FACILITY_DATA_TAXI_POINT,
  SIMCONNECT_FACILITY_DATA_TAXI_PARKING,
};

typedef DWORD SIMCONNECT_DATA_REQUEST_FLAG;
static const DWORD SIMCONNECT_DATA_REQUEST_FLAG_DEFAULT = 0x00000000;

typedef DWORD SIMCONNECT_DATA_SET_FLAG;
static const DWORD SIMCONNECT_DATA_SET_FLAG_DEFAULT = 0x00000000;

typedef DWORD SIMCONNECT_EVENT_FLAG;
static const DWORD SIMCONNECT_EVENT_FLAG_DEFAULT = 0x00000000;

static const DWORD SIMCONNECT_GROUP_PRIORITY_HIGHEST = 1;

#pragma pack(push, 1)

struct SIMCONNECT_RECV {
  DWORD dwSize;
  DWORD dwVersion;
  DWORD dwID;
};

struct SIMCONNECT_RECV_EXCEPTION : public SIMCONNECT_RECV {
  DWORD dwException;
  static const DWORD UNKNOWN_SENDID = 0;
  DWORD dwSendID;
  static const DWORD UNKNOWN_INDEX = DWORD_MAX;
  DWORD dwIndex;
};

struct SIMCONNECT_RECV_OPEN : public SIMCONNECT_RECV {
  SIMCONNECT_STRING(szApplicationName, 256);
  DWORD dwApplicationVersionMajor;
  DWORD dwApplicationVersionMinor;
  DWORD dwApplicationBuildMajor;
  DWORD dwApplicationBuildMinor;
  DWORD dwSimConnectVersionMajor;
  DWORD dwSimConnectVersionMinor;
  DWORD dwSimConnectBuildMajor;
  DWORD dwSimConnectBuildMinor;
  DWORD dwReserved1;
  DWORD dwReserved2;
};

struct SIMCONNECT_RECV_QUIT : public SIMCONNECT_RECV {};

struct SIMCONNECT_RECV_EVENT : public SIMCONNECT_RECV {
  static const DWORD UNKNOWN_GROUP = DWORD_MAX;
  DWORD uGroupID;
  DWORD uEventID;
  DWORD dwData;
};

struct SIMCONNECT_RECV_EVENT_FILENAME : public SIMCONNECT_RECV_EVENT {
  SIMCONNECT_STRING(szFileName, MAX_PATH);
  DWORD dwFlags;
};

struct SIMCONNECT_RECV_EVENT_OBJECT_ADDREMOVE : public SIMCONNECT_RECV_EVENT {
  SIMCONNECT_SIMOBJECT_TYPE eObjType;
};

struct SIMCONNECT_RECV_EVENT_FRAME : public SIMCONNECT_RECV_EVENT {
  float fFrameRate;
  float fSimSpeed;
};

struct SIMCONNECT_RECV_SIMOBJECT_DATA : public SIMCONNECT_RECV {
  DWORD dwRequestID;
  DWORD dwObjectID;
  DWORD dwDefineID;
  DWORD dwFlags;
  DWORD dwentrynumber;
  DWORD dwoutof;
  DWORD dwDefineCount;
  DWORD dwData;  // first 4 bytes of the data block, which runs on to dwSize
};

struct SIMCONNECT_RECV_SIMOBJECT_DATA_BYTYPE : public SIMCONNECT_RECV_SIMOBJECT_DATA {};

struct SIMCONNECT_RECV_FACILITY_DATA : public SIMCONNECT_RECV {
  DWORD UserRequestId;
  DWORD UniqueRequestId;
  DWORD ParentUniqueRequestId;
  DWORD Type;
  DWORD IsListItem;
  DWORD ItemIndex;
  DWORD ListSize;
  DWORD Data;  // first 4 bytes of the data block, laid out as the facility definition
};

struct SIMCONNECT_RECV_FACILITY_DATA_END : public SIMCONNECT_RECV {
  DWORD RequestId;
};

struct SIMCONNECT_DATA_INITPOSITION {
  double Latitude;   // degrees
  double Longitude;  // degrees
  double Altitude;   // feet
  double Pitch;      // degrees
  double Bank;       // degrees
  double Heading;    // degrees
  DWORD OnGround;    // 1 to place the object on the ground
  DWORD Airspeed;    // knots
};

#pragma pack(pop)

#define SIMCONNECTAPI extern "C" HRESULT ORV_SIMCONNECT_CALL

typedef void(CALLBACK* DispatchProc)(SIMCONNECT_RECV* pData, DWORD cbData, void* pContext);

SIMCONNECTAPI SimConnect_Open(HANDLE* phSimConnect, LPCSTR szName, HWND hWnd, DWORD UserEventWin32,
                              HANDLE hEventHandle, DWORD ConfigIndex);
SIMCONNECTAPI SimConnect_Close(HANDLE hSimConnect);
SIMCONNECTAPI SimConnect_CallDispatch(HANDLE hSimConnect, DispatchProc pfcnDispatch, void* pContext);
SIMCONNECTAPI SimConnect_GetLastSentPacketID(HANDLE hSimConnect, DWORD* pdwError);

SIMCONNECTAPI SimConnect_SubscribeToSystemEvent(HANDLE hSimConnect, SIMCONNECT_CLIENT_EVENT_ID EventID,
                                                const char* SystemEventName);
SIMCONNECTAPI SimConnect_AddToDataDefinition(HANDLE hSimConnect, SIMCONNECT_DATA_DEFINITION_ID DefineID,
                                             const char* DatumName, const char* UnitsName,
                                             SIMCONNECT_DATATYPE DatumType = SIMCONNECT_DATATYPE_FLOAT64,
                                             float fEpsilon = 0, DWORD DatumID = SIMCONNECT_UNUSED);
SIMCONNECTAPI SimConnect_MapClientEventToSimEvent(HANDLE hSimConnect, SIMCONNECT_CLIENT_EVENT_ID EventID,
                                                  const char* EventName = "");
SIMCONNECTAPI SimConnect_AddClientEventToNotificationGroup(HANDLE hSimConnect,
                                                           SIMCONNECT_NOTIFICATION_GROUP_ID GroupID,
                                                           SIMCONNECT_CLIENT_EVENT_ID EventID,
                                                           BOOL bMaskable = FALSE);
SIMCONNECTAPI SimConnect_SetNotificationGroupPriority(HANDLE hSimConnect, SIMCONNECT_NOTIFICATION_GROUP_ID GroupID,
                                                      DWORD uPriority);

SIMCONNECTAPI SimConnect_RequestDataOnSimObject(HANDLE hSimConnect, SIMCONNECT_DATA_REQUEST_ID RequestID,
                                                SIMCONNECT_DATA_DEFINITION_ID DefineID,
                                                SIMCONNECT_OBJECT_ID ObjectID, SIMCONNECT_PERIOD Period,
                                                SIMCONNECT_DATA_REQUEST_FLAG Flags = 0, DWORD origin = 0,
                                                DWORD interval = 0, DWORD limit = 0);
SIMCONNECTAPI SimConnect_RequestDataOnSimObjectType(HANDLE hSimConnect, SIMCONNECT_DATA_REQUEST_ID RequestID,
                                                    SIMCONNECT_DATA_DEFINITION_ID DefineID, DWORD dwRadiusMeters,
                                                    SIMCONNECT_SIMOBJECT_TYPE type);
SIMCONNECTAPI SimConnect_SetDataOnSimObject(HANDLE hSimConnect, SIMCONNECT_DATA_DEFINITION_ID DefineID,
                                            SIMCONNECT_OBJECT_ID ObjectID, SIMCONNECT_DATA_SET_FLAG Flags,
                                            DWORD ArrayCount, DWORD cbUnitSize, void* pDataSet);
SIMCONNECTAPI SimConnect_TransmitClientEvent(HANDLE hSimConnect, SIMCONNECT_OBJECT_ID ObjectID,
                                             SIMCONNECT_CLIENT_EVENT_ID EventID, DWORD dwData,
                                             SIMCONNECT_NOTIFICATION_GROUP_ID GroupID, SIMCONNECT_EVENT_FLAG Flags);

SIMCONNECTAPI SimConnect_AICreateNonATCAircraft(HANDLE hSimConnect, const char* szContainerTitle,
                                                const char* szTailNumber, SIMCONNECT_DATA_INITPOSITION InitPos,
                                                SIMCONNECT_DATA_REQUEST_ID RequestID);
SIMCONNECTAPI SimConnect_AIRemoveObject(HANDLE hSimConnect, SIMCONNECT_OBJECT_ID ObjectID,
                                        SIMCONNECT_DATA_REQUEST_ID RequestID);
SIMCONNECTAPI SimConnect_AIReleaseControl(HANDLE hSimConnect, SIMCONNECT_OBJECT_ID ObjectID,
                                          SIMCONNECT_DATA_REQUEST_ID RequestID);
SIMCONNECTAPI SimConnect_AISetAircraftFlightPlan(HANDLE hSimConnect, SIMCONNECT_OBJECT_ID ObjectID,
                                                 const char* szFlightPlanPath, SIMCONNECT_DATA_REQUEST_ID RequestID);

SIMCONNECTAPI SimConnect_AddToFacilityDefinition(HANDLE hSimConnect, SIMCONNECT_DATA_DEFINITION_ID DefineID,
                                                 const char* FieldName);
SIMCONNECTAPI SimConnect_RequestFacilityData(HANDLE hSimConnect, SIMCONNECT_DATA_DEFINITION_ID DefineID,
                                             SIMCONNECT_DATA_REQUEST_ID RequestID, const char* ICAO,
                                             const char* Region = "");
