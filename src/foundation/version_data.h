#pragma once
// A program or data version: major, minor, patch, compared field by field.
#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace orv {

struct VersionData {
  std::int32_t major = 0;
  std::int32_t minor = 0;
  std::int32_t patch = 0;

  constexpr VersionData() = default;
  constexpr VersionData(std::int32_t ma, std::int32_t mi, std::int32_t pa) : major(ma), minor(mi), patch(pa) {}
  // An empty text is 0.0.0. A text of another form is logged; the value keeps what was read
  // before the fault, so a damaged stored version counts as old.
  explicit VersionData(std::string_view text);

  std::string text() const;
  friend constexpr auto operator<=>(const VersionData&, const VersionData&) = default;
};

}  // namespace orv
