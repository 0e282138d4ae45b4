#pragma once
// The key of the reference data files. One key for all of them; the encrypted files on the
// download site are made with the same bytes (tools/encrypt_data).
#include <array>
#include <cstddef>

namespace orv {

inline constexpr std::size_t kDataKeyBytes = 32;
using DataKey = std::array<unsigned char, kDataKeyBytes>;

const DataKey& gf_dataKey();

}  // namespace orv
