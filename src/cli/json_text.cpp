#include "cli/json_text.h"

#include <nlohmann/json.hpp>

#include <set>
#include <vector>

namespace brindle {

namespace {

using nlohmann::json;

/// Follows the parser through the text and notes the first field that an object holds twice; the parser
/// itself would keep the last value and drop the others without a word.
class DuplicateFinder {
  public:
    /// Path of the first field that is given twice, or empty.
    [[nodiscard]] const std::string& Found() const { return found_; }

    void Follow(json::parse_event_t event, const json& parsed) {
        switch (event) {
        case json::parse_event_t::object_start:
        case json::parse_event_t::array_start:
            open_.push_back({event == json::parse_event_t::array_start, 0, {}, {}});
            break;
        case json::parse_event_t::key:
            Enter(parsed.get<std::string>());
            break;
        case json::parse_event_t::object_end:
        case json::parse_event_t::array_end:
            open_.pop_back();
            PassValue();
            break;
        case json::parse_event_t::value:
            PassValue();
            break;
        }
    }

  private:
    /// An object or a list that is being read.
    struct Level {
        bool List;
        std::size_t Index;
        std::string Field;
        std::set<std::string> Fields;
    };

    void Enter(const std::string& field) {
        Level& level = open_.back();
        level.Field = field;
        if (!level.Fields.insert(field).second && found_.empty()) {
            found_ = Path();
        }
    }

    void PassValue() {
        if (!open_.empty()) {
            ++open_.back().Index;
        }
    }

    [[nodiscard]] std::string Path() const {
        std::string path;
        for (const Level& level : open_) {
            path = level.List ? ElementPath(path, level.Index) : FieldPath(path, level.Field);
        }
        return path;
    }

    std::vector<Level> open_;
    std::string found_;
};

/// The library's message without its own error number in front.
std::string Message(const json::exception& error) {
    const std::string text = error.what();
    const std::size_t start = text.find("] ");
    return start == std::string::npos ? text : text.substr(start + 2);
}

} // namespace

std::string ParseJson(std::string_view text, json& value) {
    DuplicateFinder duplicates;
    const auto follow = [&duplicates](int, json::parse_event_t event, const json& parsed) {
        duplicates.Follow(event, parsed);
        return true;
    };
    try {
        value = json::parse(text, follow);
    } catch (const json::parse_error& error) {
        return Message(error);
    } catch (const json::out_of_range& error) { // a number beyond any that the library can hold
        return Message(error);
    }
    return duplicates.Found().empty() ? std::string() : duplicates.Found() + ": given twice";
}

std::string FieldPath(const std::string& path, const std::string& name) {
    return path.empty() ? name : path + "." + name;
}

std::string ElementPath(const std::string& path, std::size_t index) {
    return path + "[" + std::to_string(index) + "]";
}

} // namespace brindle
