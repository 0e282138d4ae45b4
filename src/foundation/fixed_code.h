#pragma once
// Short codes of a fixed length held as their bytes, without a terminator:
// three bytes for airline codes, four for ICAO airport codes. Millions of them sit in
// the tables of the engine, so the type is plain bytes and everything is inline.
#include <fmt/format.h>

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace orv {

namespace detail {
[[noreturn]] inline void throwInvalidFixedCode(std::string_view text) {
  throw std::invalid_argument(fmt::format("'{}' FixedCode: invalid string (length/charset)", text));
}
}  // namespace detail

template <std::size_t N>
struct FixedCode {
  static_assert(N == 3 || N == 4, "codes have three or four characters");
  static constexpr std::size_t size = N;

  std::array<char, N> bytes{};  // all zero: no code

  constexpr FixedCode() = default;

  // Exactly N characters of A-Z or 0-9; lower case is folded up.
  // Throws std::invalid_argument otherwise, so that readers of outside data can pass the record over.
  constexpr explicit FixedCode(std::string_view text) {
    if (text.size() != N) detail::throwInvalidFixedCode(text);
    for (std::size_t i = 0; i < N; ++i) {
      char c = text[i];
      if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
      if (!((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'))) detail::throwInvalidFixedCode(text);
      bytes[i] = c;
    }
  }

  constexpr bool empty() const {
    for (char c : bytes)
      if (c != 0) return false;
    return true;
  }
  constexpr explicit operator bool() const { return !empty(); }

  // The characters; empty for no code.
  constexpr std::string_view view() const { return empty() ? std::string_view{} : std::string_view(bytes.data(), N); }
  std::string str() const { return std::string(view()); }

  // An airport code as one word, the first character in the low byte.
  constexpr std::uint32_t word() const
    requires(N == 4)
  {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[0])) |
           static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[1])) << 8 |
           static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[2])) << 16 |
           static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[3])) << 24;
  }
  // The inverse of word(); takes the bytes as they are, without checking them.
  static constexpr FixedCode fromWord(std::uint32_t w)
    requires(N == 4)
  {
    FixedCode code;
    for (std::size_t i = 0; i < 4; ++i) code.bytes[i] = static_cast<char>((w >> (8 * i)) & 0xFFu);
    return code;
  }

  friend constexpr bool operator==(const FixedCode&, const FixedCode&) = default;
  friend constexpr auto operator<=>(const FixedCode&, const FixedCode&) = default;
};

}  // namespace orv

template <std::size_t N>
struct std::hash<orv::FixedCode<N>> {
  std::size_t operator()(const orv::FixedCode<N>& code) const noexcept {
    std::uint32_t packed = 0;
    for (std::size_t i = 0; i < N; ++i)
      packed |= static_cast<std::uint32_t>(static_cast<unsigned char>(code.bytes[i])) << (8 * i);
    return std::hash<std::uint32_t>{}(packed);
  }
};

template <std::size_t N>
struct fmt::formatter<orv::FixedCode<N>> : fmt::formatter<std::string_view> {
  template <class Context>
  auto format(const orv::FixedCode<N>& code, Context& ctx) const {
    return fmt::formatter<std::string_view>::format(code.view(), ctx);
  }
};
