#include "files/option_file.h"
#include "files/text_fields.h"
#include "files/vdr810_reader.h"
#include "files/vdr810_writer.h"
#include "files/whole_file.h"
#include "model/output_map.h"
#include "ratio_reporter.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <malloc.h>
#include <new>
#include <string>
#include <string_view>

/// Reading the logic file of the largest VDR810: 8 groups, 8 banks of outputs, all units; signals of the
/// example. Brindle leaves the lists of signals out of it; other tools do not.
namespace {

bool counting = false; // counting costs time too
std::size_t inUse = 0;
std::size_t mostInUse = 0;

} // namespace

// Allocations are counted at the size that they really take.
void* operator new(std::size_t size) {
    void* block = std::malloc(size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    if (counting) {
        inUse += malloc_usable_size(block);
        mostInUse = std::max(mostInUse, inUse);
    }
    return block;
}

void operator delete(void* block) noexcept {
    if (counting) {
        inUse -= malloc_usable_size(block);
    }
    std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    operator delete(block);
}

namespace {

using namespace brindle;

constexpr int Outputs = 128; // eight banks

/// The lists of an option file in the way of a logic file.
std::string Lists(const OptionFile& option) {
    std::string text = "<CATEGORY INFO>\r\n";
    for (const Vdr810Category& category : option.Lists.Categories) {
        text += std::to_string(category.Number) + "," + category.Name + "\r\n";
    }
    text += "<LABEL INFO>\r\n";
    for (const Vdr810Label& label : option.Lists.Labels) {
        text +=
            std::to_string(label.Category) + "," + std::to_string(label.Signal) + "," + label.Name + "\r\n";
    }
    return text;
}

/// Codes and words of the sizes that files have: some signals plain, some inverted, most inputs unconnected,
/// a few outputs mapped.
std::string LargestFile(const OptionFile& option) {
    LogicConfig config;
    MakeNewVdr810(config, option);
    config.FirstOutput = 1;
    config.LastOutput = Outputs;
    int place = 0;
    for (int group = 1; group <= config.GroupCount; ++group) {
        for (const UnitInfo& unit : UnitTable) {
            for (int input = 0; input < InputsPerUnit; input += 3) {
                place += 7;
                config.Group(group).Unit(unit.Number).Inputs.at(static_cast<std::size_t>(input)) =
                    place % config.Coding.InvertBase;
            }
            MapOutput(config, group, unit.Number, place % Outputs + 1, true);
            if (IsTimer(unit.Number)) {
                config.Group(group).Timer(unit.Number) = {place % 1000, 600000};
            }
        }
    }
    return EncodeVdr810(config);
}

void ReadFile(benchmark::State& state, const std::string& text) {
    LogicConfig config;
    for (auto _ : state) {
        Vdr810Reading reading = DecodeVdr810(text, "file", config);
        benchmark::DoNotOptimize(reading);
        benchmark::ClobberMemory();
    }
    if (text.rfind(EncodeVdr810(config), 0) != 0) {
        state.SkipWithError("read another logic");
    }
}

/// Every line and every field in it found by the library's search, as most programs split a text.
void SplitBySearch(benchmark::State& state, const std::string& text) {
    for (auto _ : state) {
        TextCursor lines(text);
        for (std::string_view line; lines.NextLine(line);) {
            FieldCursor fields(line);
            for (std::string_view field; fields.Next(field);) {
                benchmark::DoNotOptimize(field);
            }
        }
    }
}

/// The least that splitting can be: one look at each byte.
void SplitByteByByte(benchmark::State& state, const std::string& text) {
    for (auto _ : state) {
        const char* field = text.data();
        const char* const end = field + text.size();
        for (const char* at = field; at != end; ++at) {
            if (*at == ',' || *at == '\n') {
                std::string_view found(field, static_cast<std::size_t>(at - field));
                benchmark::DoNotOptimize(found);
                field = at + 1;
            }
        }
    }
}

/// The most memory in use at a time while a file of this text is read from the disk, the logic that it is
/// read into included; 0 where the disk fails.
std::size_t MemoryToRead(const std::string& text) {
    const FileSystem files = RealFileSystem();
    const std::string path = (std::filesystem::temp_directory_path() / "vdr810_bench.c10").string();
    if (ReplaceWholeFile(files, path, text).Failed()) {
        return 0;
    }
    LogicConfig config;
    inUse = 0;
    mostInUse = 0;
    counting = true;
    const bool done = ReadVdr810File(files, path, config).Done();
    counting = false;
    return !files.Remove(path).Failed() && done ? mostInUse + sizeof config : 0;
}

void PrintMemory(const char* name, const std::string& text) {
    const std::size_t memory = MemoryToRead(text);
    std::printf("%s, a file of %zu bytes, takes %zu bytes of memory, %.2f times the file\n", name,
                text.size(), memory, static_cast<double>(memory) / static_cast<double>(text.size()));
}

} // namespace

int main(int argc, char** argv) {
    OptionFile option;
    if (ReadOptionFile(RealFileSystem(), BRINDLE_EXAMPLES "/PLC00230_OPT00012.810", option).Failed()) {
        std::fprintf(stderr, "cannot read the example\n");
        return 1;
    }
    const std::string file = LargestFile(option);
    const std::string withLists = file + Lists(option);
    const auto add = [](const char* name, void (*run)(benchmark::State&, const std::string&),
                        const std::string& text) {
        benchmark::RegisterBenchmark(name, [run, &text](benchmark::State& state) {
            run(state, text);
        })->Unit(benchmark::kMicrosecond);
    };
    add("ReadLogic", ReadFile, file);
    add("SplitBySearch", SplitBySearch, file);
    add("SplitByteByByte", SplitByteByByte, file);
    add("ReadLogicWithLists", ReadFile, withLists);
    add("SplitListsBySearch", SplitBySearch, withLists);
    add("SplitListsByteByByte", SplitByteByByte, withLists);
    const int result = RunBenchmarks(argc, argv,
                                     {{"ReadLogic", "SplitBySearch"},
                                      {"ReadLogic", "SplitByteByByte"},
                                      {"ReadLogicWithLists", "SplitListsBySearch"},
                                      {"ReadLogicWithLists", "SplitListsByteByByte"}});
    PrintMemory("ReadLogic", file);
    PrintMemory("ReadLogicWithLists", withLists);
    return result;
}
