#pragma once
// The program binds the hooks and ports by which lower layers reach those above them.
namespace orv {

// Once per process, before any thread that calls across the layers starts.
void lf_bindLayers();

}  // namespace orv
