#pragma once
// The simulator link as the engine's port to the simulator.
namespace orv {

// Binds the simulator link's port for the engine (gf_bindSim); idempotent.
void gf_bindSimLink();

}  // namespace orv
