#pragma once

#include <cstdint>

namespace brindle {

/// How the inputs of a logic are coded. Code 0 is "NO CONNECT", 1 is "TRUE"; a code of half of `InvertBase`
/// or more, other than `FalseCode`, is the inverted form of the signal `InvertBase` minus code.
struct InputCoding {
    std::int32_t InvertBase = 256; ///< catalogue size: 256 for the VDR812
    std::int16_t FalseCode = 255;  ///< code of the signal "FALSE"
};

inline constexpr std::int32_t NoConnectCode = 0;
inline constexpr std::int32_t TrueCode = 1;

/// Whether `code` lies in the upper half and is not "FALSE": the input shows its invert marker.
constexpr bool IsInverted(const InputCoding& coding, std::int32_t code) {
    return code >= coding.InvertBase / 2 && code != coding.FalseCode;
}

/// The signal that `code` stands for, inverted or not. `FalseCode` stands for itself.
constexpr std::int32_t SignalOfCode(const InputCoding& coding, std::int32_t code) {
    return IsInverted(coding, code) ? coding.InvertBase - code : code;
}

/// The code with its inversion flipped: "TRUE" and "FALSE" are each other's inverse, "NO CONNECT" has none
/// and stays.
constexpr std::int32_t ToggleInvert(const InputCoding& coding, std::int32_t code) {
    if (code == NoConnectCode) {
        return code;
    }
    if (code == TrueCode) {
        return coding.FalseCode;
    }
    if (code == coding.FalseCode) {
        return TrueCode;
    }
    // Files may hold any 32 bits, so the difference wraps around.
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(coding.InvertBase) -
                                     static_cast<std::uint32_t>(code));
}

} // namespace brindle
