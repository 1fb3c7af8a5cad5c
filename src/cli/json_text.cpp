#include "cli/json_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <limits>
#include <set>
#include <utility>

namespace brindle {

namespace {

using nlohmann::json;

constexpr std::size_t MostMessage = 200; // bytes of the parser's words, which quote the text
constexpr std::size_t MostName = 40;

/// Makes the values of what the parser comes upon. The parser's own tree would keep the last of two fields of
/// one name without a word, go down to any depth, and need memory even to be taken apart.
class TreeBuilder final : public nlohmann::json_sax<json> {
  public:
    /// Why the text is refused; empty as long as all is well.
    [[nodiscard]] const std::string& Refusal() const { return refusal_; }

    /// The value of the whole text.
    [[nodiscard]] JsonValue& Root() { return root_; }

    bool null() override { return Put({nullptr}); }

    bool boolean(bool value) override { return Put({value}); }

    bool number_integer(std::int64_t value) override { return Put({value}); }

    bool number_unsigned(std::uint64_t value) override {
        constexpr auto most = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
        return value > most ? Put({value}) : Put({static_cast<std::int64_t>(value)});
    }

    bool number_float(double /*value*/, const std::string& text) override { return Put({JsonReal{text}}); }

    bool string(std::string& value) override { return Put({std::move(value)}); }

    bool binary(json::binary_t& /*value*/) override { return false; } // no text has one

    bool start_object(std::size_t /*elements*/) override { return Begin({JsonObject{}}); }

    bool start_array(std::size_t /*elements*/) override { return Begin({JsonList{}}); }

    bool key(std::string& name) override {
        Level& level = open_.back();
        const bool first = level.Names.insert(name).second;
        level.Field = std::move(name);
        return first || Refuse("given twice");
    }

    bool end_object() override { return End(); }

    bool end_array() override { return End(); }

    bool parse_error(std::size_t /*position*/, const std::string& /*token*/,
                     const nlohmann::detail::exception& error) override {
        const std::string_view text = error.what();
        const std::size_t start = text.find("] "); // after the library's own error number
        refusal_ = Excerpt(text.substr(start == std::string_view::npos ? 0 : start + 2), MostMessage);
        return false;
    }

  private:
    /// An object or a list that is being read.
    struct Level {
        JsonValue Value;
        std::string Field;           ///< of an object, whose value comes next
        std::set<std::string> Names; ///< of an object, so far
    };

    bool Begin(JsonValue value) {
        if (open_.size() == MostJsonDepth) {
            return Refuse("more than " + std::to_string(MostJsonDepth) + " lists and objects in each other");
        }
        open_.push_back({std::move(value), {}, {}});
        return true;
    }

    bool End() {
        JsonValue value = std::move(open_.back().Value);
        open_.pop_back();
        return Put(std::move(value));
    }

    bool Put(JsonValue value) {
        if (open_.empty()) {
            root_ = std::move(value);
        } else if (auto* list = std::get_if<JsonList>(&open_.back().Value.Held)) {
            list->push_back(std::move(value));
        } else {
            std::get<JsonObject>(open_.back().Value.Held)
                .push_back({std::move(open_.back().Field), std::move(value)});
        }
        return true;
    }

    /// Refuses what is being read. Always false.
    bool Refuse(const std::string& reason) {
        std::string path;
        for (const Level& level : open_) {
            const auto* list = std::get_if<JsonList>(&level.Value.Held);
            path = list != nullptr ? ElementPath(path, list->size()) : FieldPath(path, level.Field);
        }
        refusal_ = path + ": " + reason;
        return false;
    }

    std::vector<Level> open_;
    JsonValue root_;
    std::string refusal_;
};

/// A byte within a character of UTF-8, not its first.
bool IsFollowing(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

} // namespace

const JsonValue* JsonValue::Find(std::string_view name) const {
    const auto* object = std::get_if<JsonObject>(&Held);
    if (object == nullptr) {
        return nullptr;
    }
    const auto found = std::find_if(object->begin(), object->end(),
                                    [name](const JsonField& field) { return field.Name == name; });
    return found == object->end() ? nullptr : &found->Value;
}

std::string ParseJson(std::string_view text, JsonValue& value) {
    TreeBuilder builder;
    if (json::sax_parse(text.begin(), text.end(), &builder)) {
        value = std::move(builder.Root());
    }
    return builder.Refusal();
}

std::string Excerpt(std::string_view text, std::size_t most) {
    if (text.size() <= most) {
        return std::string(text);
    }
    std::size_t head = most * 2 / 3;
    std::size_t tail = text.size() - (most - head);
    while (head > 0 && IsFollowing(text[head])) {
        --head;
    }
    while (tail < text.size() && IsFollowing(text[tail])) {
        ++tail;
    }
    return std::string(text.substr(0, head)) + "..." + std::string(text.substr(tail));
}

std::string FieldPath(const std::string& path, std::string_view name) {
    return path.empty() ? Excerpt(name, MostName) : path + "." + Excerpt(name, MostName);
}

std::string ElementPath(const std::string& path, std::size_t index) {
    return path + "[" + std::to_string(index) + "]";
}

} // namespace brindle
