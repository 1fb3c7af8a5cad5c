#pragma once

#include <string>
#include <vector>

namespace brindle {

/// What the About box says.
struct AboutText {
    std::string Product;
    std::string Version; ///< "Version 2.30.0012"
    std::string Systems; ///< what it runs on
    std::string Publisher;
    std::vector<std::string> Libraries; ///< the libraries used, one with its licence each
};

/// The version as the About box shows it: major and minor as "0.00", a point, the revision in four digits.
/// `minor` (0 to 99) are the hundredths.
std::string VersionText(int major, int minor, int revision);

/// `qtVersion` is that of the window library in use.
AboutText BuildAboutText(int major, int minor, int revision, const std::string& qtVersion);

} // namespace brindle
