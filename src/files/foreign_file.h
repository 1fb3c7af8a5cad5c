#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// What a file is by its content, whatever its name says. Nothing keeps a file from being opened as a
/// program; this is how the user learns what he has before him.
namespace brindle {

enum class ProgramKind {
    Vdr812,       ///< begins with "plcd" and holds 2048 bytes
    NoMagic,      ///< does not begin with "plcd", of whatever size
    OtherSize,    ///< begins with "plcd", or is too short for it, and does not hold 2048 bytes
    Vdr810Logic,  ///< the text of a logic file (.c10)
    Vdr810Options ///< the text of an option file (.810)
};

/// What the file of `size` bytes is, of which `bytes` are the first: all of them, or 2048 and more.
ProgramKind KindOfProgram(std::string_view bytes, std::uint64_t size);

/// One sentence for a file that was opened as a VDR812 program and is none; empty for a program.
std::string ForeignNotice(ProgramKind kind, std::uint64_t size);

} // namespace brindle
