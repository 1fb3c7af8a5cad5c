#include "files/foreign_file.h"

#include "files/program_file.h"
#include "files/text_fields.h"
#include "files/vdr810_head.h"
#include "files/vdr810_sections.h"

#include <optional>

namespace brindle {

namespace {

/// A section's tag, which nothing but a VDR810 text has right after its head.
bool BeginsSection(std::string_view line) {
    std::string_view field;
    FieldCursor(line).Next(field);
    const std::string_view tag = Trimmed(field);
    return tag == CategoryTag || tag == LabelTag || UnitOfTag(tag) != 0;
}

/// Whether the text goes on with the head of a VDR810 file. Values that no relay can have are a matter of the
/// reader: the file is one of a VDR810 all the same.
bool PassVdr810Head(TextCursor& text) {
    Vdr810Head head;
    const int error = ReadVdr810Head(text, {}, head).Number;
    return error == NoFileError || error == SubscriptError;
}

/// Which text of a VDR810 these are the first bytes of, if any.
std::optional<ProgramKind> KindOfText(std::string_view bytes) {
    TextCursor text(bytes);
    std::string_view line;
    if (!PassVdr810Head(text) || !text.NextFilledLine(line)) {
        return {};
    }
    if (BeginsSection(line)) {
        return ProgramKind::Vdr810Logic;
    }
    // An option file has one number more before its lists.
    std::int32_t unconnected = 0;
    const bool number = ParseNumber(line, unconnected) == NumberFault::None;
    return number && text.NextFilledLine(line) && BeginsSection(line)
               ? std::optional(ProgramKind::Vdr810Options)
               : std::nullopt;
}

std::string BytesInstead(std::uint64_t size) {
    return std::to_string(size) + (size == 1 ? " byte" : " bytes") + " instead of " +
           std::to_string(ProgramFileSize);
}

} // namespace

ProgramKind KindOfProgram(std::string_view bytes, std::uint64_t size) {
    const std::optional<ProgramKind> text = KindOfText(bytes);
    if (text) { // asked first: its first line may be any
        return *text;
    }
    if (!bytes.starts_with(ProgramMagic) && size >= ProgramMagic.size()) {
        return ProgramKind::NoMagic;
    }
    return size == ProgramFileSize ? ProgramKind::Vdr812 : ProgramKind::OtherSize;
}

std::string ForeignNotice(ProgramKind kind, std::uint64_t size) {
    const std::string none = "This is not a VDR812 program: ";
    switch (kind) {
    case ProgramKind::NoMagic:
        return none + "it does not begin with \"plcd\"" +
               (size == ProgramFileSize ? "." : " and holds " + BytesInstead(size) + ".");
    case ProgramKind::OtherSize:
        return none + BytesInstead(size) +
               (size < ProgramFileSize ? ", the missing ones read as zero." : ", the last ones ignored.");
    case ProgramKind::Vdr810Logic:
        return "This is a VDR810 logic file, though its name does not end in .c10.";
    case ProgramKind::Vdr810Options:
        return "This is a VDR810 option file, not a VDR812 program.";
    case ProgramKind::Vdr812:
        break;
    }
    return {};
}

} // namespace brindle
