#include "cli/command_line.h"
#include "cli/system_clock.h"
#include "platform/arguments.h"
#include "platform/environment.h"
#include "platform/file_size_limit.h"
#include "platform/folders.h"
#include "platform/standard_output.h"
#include "settings/program_folder.h"

#include <clocale>
#include <iostream>

int main(int argc, char** argv) {
    // Dates and times only: numbers are written and read the same in every locale.
    std::setlocale(LC_TIME, "");
    brindle::MakeStandardOutputBinary();
    brindle::LetLargeFilesFail();
    const brindle::FolderFunctions folders = brindle::RealFolders();
    const std::string optionFiles = brindle::OptionFileFolder(
        brindle::FindProgramFolders(brindle::ExecutableFolder(), brindle::EnvironmentVariable, folders),
        folders);
    return brindle::RunCommandLine(brindle::ProgramArguments(argc, argv),
                                   {brindle::RealFileSystem(), std::cout, std::cerr, folders.CurrentFolder(),
                                    brindle::ShortDate, brindle::ShortTime, folders, optionFiles});
}
