#pragma once
// The present QNH in hectopascal: the QNH Reader writes it, the engine's descent rates read it,
// and the decoding and the window get the same.
#include <atomic>
#include <cstdint>

namespace orv {

inline constexpr std::int32_t kStandardQnh = 1013;
inline std::atomic<std::int32_t> gv_qnh{kStandardQnh};

}  // namespace orv
