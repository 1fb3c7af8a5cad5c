#pragma once

#include "support/editor_harness.h"
#include "support/vdr810_scheme.h"

#include <gtest/gtest.h>

#include <string>

namespace brindle {

inline constexpr const char* Option230 = "/opt/brindle/PLC00230_OPT00012.810";

/// A started editor, an option file of version 2.30 and options 12 beside the program, and logic files in
/// /data.
struct Vdr810Commands : testing::Test {
    EditorHarness Harness;

    Vdr810Commands() {
        Harness.Folders.insert("/data");
        Harness.Files[Option230] = SchemeOptionFile(2.3, 12);
        Harness.Files["/data/x.c10"] = SchemeLogicFile(2.3, 12);
        Harness.Start();
        Harness.ChooseOptions = [](Vdr810Options& /*options*/) { return true; };
        Harness.Log.clear();
    }

    [[nodiscard]] const LogicConfig& Config() { return Harness->Config(); }

    void Open(const std::string& path) { Harness->OpenPath(path); }

    [[nodiscard]] bool HasFile(const std::string& path) const { return Harness.Files.count(path) == 1; }
};

} // namespace brindle
