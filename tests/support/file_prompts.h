#pragma once

#include "platform/file_error.h"
#include "platform/message_box.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace brindle {

/// The errors that disks give to one who writes, those without a text of their own included.
inline const std::vector<int> WritingFaults{DiskFullError,   PermissionDeniedError, DeviceIoError,
                                            InternalError,   PathNotFoundError,     DeviceUnavailableError,
                                            PathAccessError, DiskNotReadyError,     TooManyFilesError};

/// Those of them whose box offers to try again.
inline const std::vector<int> AskingFaults{DiskFullError, DeviceUnavailableError, DiskNotReadyError};

/// The box in which a failed save with error `number` is to be told, as the user guide has it.
inline MessageBox SaveFailurePrompt(int number) {
    const auto prompt = [](const char* text, MessageButtons buttons) {
        return MessageBox{text, MessageIcon::Exclamation, buttons, "Disk Error"};
    };
    switch (number) {
    case DeviceIoError:
        return prompt("Internal disk error.", MessageButtons::Ok);
    case DiskFullError:
        return prompt("Disk is full. \r\nClear some space and Retry or press Cancel.",
                      MessageButtons::RetryCancel);
    case TooManyFilesError:
        return prompt("Can't open file.  Too many files are open.", MessageButtons::Ok);
    case DeviceUnavailableError:
        return prompt("That device appears unavailable.", MessageButtons::RetryCancel);
    case PermissionDeniedError:
        return prompt("Access denied.  File may be locked or in use by another program.", MessageButtons::Ok);
    case DiskNotReadyError:
        return prompt("Drive not ready.  Insert disk and select Retry or press Cancel.",
                      MessageButtons::RetryCancel);
    case PathAccessError:
        return prompt("The selected path can not be accessed.", MessageButtons::Ok);
    case PathNotFoundError:
        return prompt("That path doesn't exist.", MessageButtons::Ok);
    default:
        return {"There was an error trying to save the File.\r\nError number: " + std::to_string(number) +
                    "\r\nError description: " + FileErrorDescription(number) + "\r\nError Source: ",
                MessageIcon::Exclamation, MessageButtons::Ok, "Brindle"};
    }
}

/// The error that a save gives when the operation `record` of the disk fails with `error`: that a folder
/// takes no new file says nothing of the old one.
inline int ErrorOfSave(const std::string& record, int error) {
    const bool creating = record.rfind("create ", 0) == 0;
    return creating && error == PermissionDeniedError ? int{PathAccessError} : error;
}

/// `box` is that of a save that failed with error `number`. The generic box ends in what failed, which is
/// then asked for only to be there.
inline void ExpectSaveFailure(const MessageBox& box, int number) {
    const MessageBox expected = SaveFailurePrompt(number);
    const bool generic = expected.Title == "Brindle";
    EXPECT_EQ(expected.Text, generic ? box.Text.substr(0, expected.Text.size()) : box.Text);
    EXPECT_TRUE(!generic || box.Text.size() > expected.Text.size()) << "names what failed";
    EXPECT_EQ(expected.Icon, box.Icon);
    EXPECT_EQ(expected.Buttons, box.Buttons);
    EXPECT_EQ(expected.Title, box.Title);
}

} // namespace brindle
