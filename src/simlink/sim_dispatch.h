#pragma once
// Everything the simulator says arrives here, on the SimClient thread, and becomes a small
// update of shared state or a notice for the engine.
#include <cstdint>

#include "platform/simconnect/simconnect.h"

namespace orv {

// The dispatch callback, record by record. Throws orv::UserErrorException for a simulator
// that is not the chosen one (code 2024) or not one of the two (77), and for a SimConnect
// version mismatch (95); the SimClient thread ends on them.
void CALLBACK lf_dispatch(SIMCONNECT_RECV* record, DWORD size, void* context);

// One SimConnect_CallDispatch with lf_dispatch behind a guard: nothing is thrown through the
// simulator's library. The first exception of the call is kept, the records after it are
// skipped, and it is thrown again here once CallDispatch has returned.
void lf_callDispatch(HANDLE handle);

// The open record: which simulator connected, and whether it is the chosen one.
void lf_onOpen(const SIMCONNECT_RECV_OPEN& open);
void lf_onException(const SIMCONNECT_RECV_EXCEPTION& exception);
// One aircraft of an "aircraft within range" reply: ground data of an established object,
// or the first sight of a new one, ours or the simulator's own.
void lf_onAircraftInRange(const SIMCONNECT_RECV_SIMOBJECT_DATA& record, DWORD size);

// At the reset of a run.
void lf_resetDispatchState();

}  // namespace orv
