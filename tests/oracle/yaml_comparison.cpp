#include "oracle/yaml_comparison.hpp"

#include <yaml-cpp/yaml.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "schema/yaml_document.hpp"
#include "schema/yaml_source.hpp"

namespace velk::oracle {

using namespace input::amesp;

namespace {

bool same_kind(YamlKind kind, YAML::NodeType::value type) {
    switch (type) {
        case YAML::NodeType::Null:
            return kind == YamlKind::null;
        case YAML::NodeType::Scalar:
            return kind == YamlKind::scalar;
        case YAML::NodeType::Sequence:
            return kind == YamlKind::sequence;
        case YAML::NodeType::Map:
            return kind == YamlKind::mapping;
        default:
            return false;
    }
}

std::string named(const YamlPlace& place) {
    return std::to_string(place.line) + ":" + std::to_string(place.column) + " (" + std::to_string(place.offset) + ")";
}

// Walks both in the same order, into aliases of neither.
class TreeComparison {
public:
    std::string difference(const YamlNode& node, const YAML::Node& model) {
        if (node.kind == YamlKind::alias) {
            const auto known = known_.find(&yaml_value(node));
            const bool right = known != known_.end() && known->second.is(model);
            return right ? "" : "an alias of another node at " + named(node.place);
        }
        known_.emplace(&node, model);
        const YAML::Mark mark = model.Mark();
        const bool at_mark = mark.is_null() || (mark.line + 1 == static_cast<int>(node.begin.line) &&
                                                mark.column + 1 == static_cast<int>(node.begin.column));
        // A null at the end of the text has the column 0 for yaml-cpp.
        if (!same_kind(node.kind, model.Type()) || (!at_mark && (!model.IsNull() || mark.column != 0))) {
            return "another node at " + named(node.begin);
        }
        if (model.IsScalar() && node.scalar != model.Scalar()) {
            return "another scalar at " + named(node.place);
        }
        return model.IsMap() ? of_mappings(node, model) : of_sequences(node, model);
    }

private:
    std::string of_sequences(const YamlNode& node, const YAML::Node& model) {
        auto item = model.begin();
        std::string found;
        for_each_yaml_item(node, [&](const YamlNode& own) {
            if (found.empty() && item == model.end()) {
                found = "more items at " + named(node.place);
            }
            found = found.empty() ? difference(own, *item) : found;
            if (found.empty()) {
                ++item;
            }
        });
        return found.empty() && item != model.end() ? "items are missing at " + named(node.place) : found;
    }

    std::string of_mappings(const YamlNode& node, const YAML::Node& model) {
        auto pair = model.begin();
        std::string found;
        for_each_yaml_pair(node, [&](const YamlNode& key, const YamlNode& value) {
            if (found.empty() && pair == model.end()) {
                found = "more pairs at " + named(node.place);
            }
            found = found.empty() ? difference(key, pair->first) : found;
            found = found.empty() ? difference(value, pair->second) : found;
            if (found.empty()) {
                ++pair;
            }
        });
        return found.empty() && pair != model.end() ? "pairs are missing at " + named(node.place) : found;
    }

    std::map<const YamlNode*, YAML::Node> known_;
};

// What a place says of a text in its own bytes, for the bytes as YAML sees them.
class PlaceCheck {
public:
    explicit PlaceCheck(const std::string& text)
        : source_(text),
          is_odd_(source_.utf8().find("!<>") != std::string_view::npos ||
                  source_.utf8().find('\0') != std::string_view::npos) {}

    std::string misplaced(const YamlDocument& document) {
        for (const YamlNode& node : document.nodes) {
            const auto begin = position(node.begin);
            const auto value = position(node.place);
            const auto anchor = node.anchor ? position(*node.anchor) : begin;
            if (!begin || !value || !anchor || *begin > *anchor || *anchor > *value || !stands_at(node, *value) ||
                (node.anchor && source_.utf8()[*anchor] != '&')) {
                return "a misplaced node at " + named(node.place);
            }
        }
        return "";
    }

private:
    // Its byte of the UTF-8 text; none if offset, line and column are not of one byte, or none of it.
    std::optional<std::size_t> position(const YamlPlace& place) {
        const std::string_view text = source_.utf8();
        // Places are asked for nearly in order: few steps from one to the next.
        while (position_ > 0 && source_.origin(position_) > place.offset) {
            --position_;
        }
        while (position_ < text.size() && source_.origin(position_) < place.offset) {
            ++position_;
        }
        const std::string_view before = text.substr(0, position_);
        const auto lines = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
        const std::size_t column = before.size() - (before.rfind('\n') + 1);
        const bool right =
            source_.origin(position_) == place.offset && lines + 1 == place.line && column + 1 == place.column;
        return right ? std::optional(position_) : std::nullopt;
    }

    // Any of a text with an empty tag, which yaml-cpp's events show as none, or a zero byte, which makes an escape
    // sequence of what comes after it.
    bool stands_at(const YamlNode& node, std::size_t place) const {
        if (is_odd_) {
            return true;
        }
        const std::string_view rest = source_.utf8().substr(place);
        switch (node.kind) {
            case YamlKind::null:
                return true;
            case YamlKind::scalar:
                return node.scalar.empty() || std::string_view("'\"|>").find(rest[0]) != std::string_view::npos ||
                       rest.starts_with(std::string_view(node.scalar).substr(0, node.scalar.find_first_of(" \n")));
            case YamlKind::sequence:
                return rest[0] == '[' || rest[0] == '-';
            case YamlKind::mapping:
                return rest[0] == '{' || rest[0] == '?' || rest[0] == ':' ||
                       (node.size > 1 && (&node)[1].begin.offset == node.place.offset);
            case YamlKind::alias:
                return rest[0] == '*';
        }
        return false;
    }

    YamlSource source_;
    bool is_odd_;
    std::size_t position_ = 0;
};

}  // namespace

std::string difference_in_yaml(const std::string& text) {
    std::optional<YAML::Node> model;
    std::string failure;
    try {
        model = YAML::Load(text);
    } catch (const std::exception& error) {
        failure = error.what();
    }
    try {
        const YamlDocument document = read_yaml(text);
        if (!model) {
            return "a document where yaml-cpp fails: " + failure;
        }
        const std::string difference = TreeComparison().difference(document.root(), *model);
        return difference.empty() ? PlaceCheck(text).misplaced(document) : difference;
    } catch (const std::exception& error) {
        return !model && error.what() == failure ? "" : std::string("another failure: ") + error.what();
    }
}

}  // namespace velk::oracle
