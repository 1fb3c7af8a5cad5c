#pragma once

#include <cstdint>

namespace brindle {

/// A boolean kept as a 16-bit integer, -1 for true and 0 for false, as the logic and the catalogue hold their
/// flags. Converts to and from `bool`; no third value can be stored.
class Bool16 {
  public:
    constexpr Bool16() = default;

    // Implicit on purpose: a flag is assigned and tested like any bool.
    constexpr Bool16(bool value) : raw_(value ? std::int16_t{-1} : std::int16_t{0}) {}

    constexpr operator bool() const { return raw_ != 0; }

    /// The stored integer: -1 or 0.
    [[nodiscard]] constexpr std::int16_t Raw() const { return raw_; }

  private:
    std::int16_t raw_ = 0;
};

} // namespace brindle
