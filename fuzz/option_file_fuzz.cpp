#include "editor/category_choosers.h"
#include "files/option_file.h"
#include "fuzz/check.h"

#include <string>
#include <string_view>

/// Any bytes as an option file: refused whole with words, or a new logic is made of it whose option file says
/// the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brindle;
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    OptionFile option;
    const FileError error = DecodeOptionFile(text, "read x.810", option);
    if (error.Failed()) {
        Require(!error.Description.empty() && !error.Source.empty(), "an error has words");
        Require(option.Head == Vdr810Head{} && option.Lists.Empty(), "a refused file leaves nothing");
        return 0;
    }
    LogicConfig config;
    MakeNewVdr810(config, option);
    ShowAndReport(config, size);
    const SignalCatalogue catalogue = BuildCatalogue(config);
    for (int category = 0; category < static_cast<int>(catalogue.Categories.size()); ++category) {
        BuildChooserView(catalogue, category);
    }
    const std::string saved = EncodeOptionFile(config);
    OptionFile again;
    Require(!DecodeOptionFile(saved, "read x.810", again).Failed(), "what was saved loads");
    Require(again.Lists == option.Lists && again.Unconnected == option.Unconnected,
            "what was saved has the same lists");
    TakeLists(config, again);
    Require(EncodeOptionFile(config) == saved, "what was saved is saved as the same again");
    return 0;
}
