#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

namespace brindle {

/// A new, empty folder on the real disk, removed with all that is in it when the test ends.
class TempFolder {
  public:
    TempFolder() {
        std::random_device random;
        do {
            path_ = std::filesystem::temp_directory_path() / ("brindle-test-" + std::to_string(random()));
        } while (!std::filesystem::create_directory(path_));
    }

    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    [[nodiscard]] std::string Path() const { return path_.string(); }

    /// The path of `name` in the folder.
    [[nodiscard]] std::string Path(const std::string& name) const { return (path_ / name).string(); }

    void Put(const std::string& name, const std::string& bytes) const {
        std::ofstream(path_ / name, std::ios::binary) << bytes;
    }

    /// The content of the file `name`; empty where there is none.
    [[nodiscard]] std::string Content(const std::string& name) const {
        std::ifstream file(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    /// The number of names in the folder.
    [[nodiscard]] std::ptrdiff_t Count() const {
        return std::distance(std::filesystem::directory_iterator(path_),
                             std::filesystem::directory_iterator());
    }

  private:
    std::filesystem::path path_;
};

} // namespace brindle
