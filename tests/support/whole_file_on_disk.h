#pragma once

#include "files/whole_file.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace brindle {

/// Reads and replaces files in a folder of its own on the real disk.
struct WholeFileOnDisk : testing::Test {
    static FileError Replace(const std::string& path, const std::string& bytes = "new") {
        return ReplaceWholeFile(RealFileSystem(), path, bytes);
    }

    int Read(const std::string& path) { return ReadWholeFile(RealFileSystem(), path, 100, Bytes).Number; }

    TempFolder Folder;
    std::string Bytes; ///< what was read last
};

} // namespace brindle
