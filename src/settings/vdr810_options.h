#pragma once

#include <functional>
#include <string>
#include <vector>

/// Which option file a new VDR810 logic starts from: a settings file version and an options number, chosen
/// among the pairs that the PLC folder holds.
namespace brindle {

inline constexpr int HighestOptionsNumber = 32767;

/// What is asked of the list of option files. Version codes number the versions found from 0 upward.
struct PlcFolderLookups {
    std::function<double(int code)> VersionOfCode;         ///< -1 when no version has that code
    std::function<int(int code, int options)> EntryOfPair; ///< -1 when there is no file of that pair
};

/// What was chosen: places in the two lists, and what stands there.
struct Vdr810Choice {
    int VersionIndex = 0;
    double Version = -1; ///< -1: none was ever chosen
    int OptionsIndex = 0;
    int Options = -1; ///< options number; -1: none was ever chosen

    bool operator==(const Vdr810Choice&) const = default;
};

/// The two lists of the dialog and what is chosen in them.
class Vdr810Options {
  public:
    /// Fills the lists and selects the version and options number of `remembered`, wherever they stand now,
    /// or the first entries where the folder no longer has them.
    Vdr810Options(const PlcFolderLookups& lookups, const Vdr810Choice& remembered);

    /// The versions found with two decimals, in code order.
    [[nodiscard]] const std::vector<std::string>& Versions() const { return versions_; }

    /// The options numbers that exist for the chosen version, ascending.
    [[nodiscard]] const std::vector<int>& Options() const { return options_; }

    /// Chooses a version by its place in the list; the options follow it, their first is chosen.
    void ChooseVersion(int index);
    void ChooseOptions(int index);

    /// What is chosen now; nothing of use while the folder holds no option file.
    [[nodiscard]] const Vdr810Choice& Choice() const { return choice_; }

    /// Whether a pair is chosen, so that the dialog can be done.
    [[nodiscard]] bool PairChosen() const { return !options_.empty(); }

  private:
    void FillOptions();

    PlcFolderLookups lookups_;
    std::vector<std::string> versions_;
    std::vector<int> options_;
    Vdr810Choice choice_;
};

} // namespace brindle
