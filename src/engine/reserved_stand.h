#pragma once
// The stand kept free for the user at the park airport. Airport parking writes it when the
// user's list names a stand there; the engine keeps live aircraft off it. Run thread only.
#include <string>

namespace orv {

// The id of the reserved stand; empty while none is reserved.
inline std::string gReservedStand;

}  // namespace orv
