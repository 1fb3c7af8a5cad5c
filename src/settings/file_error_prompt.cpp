#include "settings/file_error_prompt.h"

#include "platform/file_error.h"

#include <algorithm>
#include <array>

namespace brindle {

namespace {

struct ErrorText {
    int Number;
    const char* Text;
    MessageButtons Buttons;
};

constexpr const char* IllegalName =
    "That filename is illegal.\r\nCheck the filename for improper format or illegal characters.";

constexpr std::array ErrorTexts = std::to_array<ErrorText>({
    {52, IllegalName, MessageButtons::Ok},
    {53, "File not found.", MessageButtons::Ok},
    {54, "Can't open your file for that type of access.", MessageButtons::Ok},
    {55, "This file is already open.", MessageButtons::Ok},
    {57, "Internal disk error.", MessageButtons::Ok},
    {58, "File already exists.  Overwrite the file?", MessageButtons::YesNo},
    {59, "Bad record length.", MessageButtons::Ok},
    {61, "Disk is full. \r\nClear some space and Retry or press Cancel.", MessageButtons::RetryCancel},
    {62,
     "This file has a nonstandard end-of-file marker, or an attempt was made to read beyond the end-of-file "
     "marker.",
     MessageButtons::Ok},
    {63, "Bad record number.", MessageButtons::Ok},
    {64, IllegalName, MessageButtons::Ok},
    {67, "Can't open file.  Too many files are open.", MessageButtons::Ok},
    {68, "That device appears unavailable.", MessageButtons::RetryCancel},
    {70, "Access denied.  File may be locked or in use by another program.", MessageButtons::Ok},
    {71, "Drive not ready.  Insert disk and select Retry or press Cancel.", MessageButtons::RetryCancel},
    {74, "Can't rename with different drive.", MessageButtons::Ok},
    {75, "The selected path can not be accessed.", MessageButtons::Ok},
    {76, "That path doesn't exist.", MessageButtons::Ok},
});

} // namespace

FileAction FileErrorPrompt(int errorNumber, const ShowMessageBox& showMessageBox) {
    const auto* const found = std::find_if(ErrorTexts.begin(), ErrorTexts.end(),
                                           [=](const ErrorText& row) { return row.Number == errorNumber; });
    if (found == ErrorTexts.end()) {
        return FileAction::NotRecognised;
    }
    switch (showMessageBox({found->Text, MessageIcon::Exclamation, found->Buttons, "Disk Error"})) {
    case MessageAnswer::Retry:
    case MessageAnswer::Yes:
        return errorNumber == FileAlreadyExistsError ? FileAction::Overwrite : FileAction::Retry;
    case MessageAnswer::Ignore:
        return FileAction::Skip;
    case MessageAnswer::Ok:
    case MessageAnswer::Cancel:
    case MessageAnswer::Abort:
    case MessageAnswer::No:
        return FileAction::GiveUp;
    case MessageAnswer::SaveAs:
    case MessageAnswer::Overwrite:
        break; // buttons that no box of the table has
    }
    return FileAction::NotRecognised;
}

} // namespace brindle
