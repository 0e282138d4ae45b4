#pragma once
// The one include for SimConnect. A build bound to the simulator's SDK (CMake option
// ORV_REAL_SIMCONNECT) gets the SDK's own header; every other build gets the declarations of
// the calls the program uses, served by the in-process stand-in simulator.
#if defined(ORV_REAL_SIMCONNECT)
// Without min/max macros and the rarely used parts: std::min and the logic's own names stay free.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#include <SimConnect.h>
#else
#include "platform/simconnect/simconnect_subset.h"
#endif
