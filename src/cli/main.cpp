#include "cli/command_line.h"
#include "cli/system_clock.h"
#include "platform/folders.h"
#include "platform/standard_output.h"

#include <clocale>
#include <iostream>

int main(int argc, char** argv) {
    // Dates and times only: numbers are written and read the same in every locale.
    std::setlocale(LC_TIME, "");
    brindle::MakeStandardOutputBinary();
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return brindle::RunCommandLine(arguments,
                                   {brindle::RealFileSystem(), std::cout, std::cerr,
                                    brindle::RealFolders().CurrentFolder(), brindle::ShortDate,
                                    brindle::ShortTime, brindle::RealFolders(), brindle::ProgramFolder()});
}
