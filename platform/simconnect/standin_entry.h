#pragma once
// The names under which the stand-in defines the SimConnect calls. Here they are the SDK's own
// names; on Windows the SDK's names belong to the run-time binding (simconnect_library.cpp),
// which hands each call to SimConnect.dll or to the stand-in's entry of the same call.
#if defined(_WIN32)
#define ORV_STANDIN_ENTRY(call) orv_standin_##call
#else
#define ORV_STANDIN_ENTRY(call) call
#endif
