#include "cli/command_line.h"
#include "platform/arguments.h"
#include "platform/clock.h"
#include "platform/environment.h"
#include "platform/file_size_limit.h"
#include "platform/folders.h"
#include "platform/standard_output.h"
#include "settings/program_folder.h"

#include <iostream>

int main(int argc, char** argv) {
    brindle::MakeStandardOutputBinary();
    brindle::LetLargeFilesFail();
    const brindle::FolderFunctions folders = brindle::RealFolders();
    const std::string optionFiles = brindle::OptionFileFolder(
        brindle::FindProgramFolders(brindle::ExecutableFolder(), brindle::EnvironmentVariable, folders),
        folders);
    return brindle::RunCommandLine(brindle::ProgramArguments(argc, argv),
                                   {brindle::RealFileSystem(), std::cout, std::cerr, folders.CurrentFolder(),
                                    brindle::WriteNow, folders, optionFiles});
}
