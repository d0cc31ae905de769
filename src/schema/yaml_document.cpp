#include "schema/yaml_document.hpp"

#include <algorithm>
#include <istream>
#include <limits>
#include <stdexcept>
#include <streambuf>
#include <utility>

#include <yaml-cpp/eventhandler.h>
#include <yaml-cpp/yaml.h>
#include <velk/core/fs.hpp>

#include "schema/yaml_properties.hpp"
#include "schema/yaml_source.hpp"

namespace velk::input::amesp {
namespace {

// A stream reads the text where it is; nothing is ever written.
class ViewBuffer : public std::streambuf {
public:
    explicit ViewBuffer(std::string_view text) {
        char* const begin = const_cast<char*>(text.data());
        setg(begin, begin, begin + text.size());
    }
};

// Makes the nodes from yaml-cpp's events, of which there is one for each and one for the end of a collection.
class TreeBuilder : public YAML::EventHandler {
public:
    explicit TreeBuilder(const YamlSource& source) : source_(source) {}

    std::vector<YamlNode> take() { return std::move(nodes_); }

    void OnDocumentStart(const YAML::Mark& /*mark*/) override {}
    void OnDocumentEnd() override {}

    void OnAnchor(const YAML::Mark& /*mark*/, const std::string& name) override { anchor_name_size_ = name.size(); }

    void OnNull(const YAML::Mark& mark, YAML::anchor_t anchor) override { add(YamlKind::null, mark, untagged, anchor); }

    void OnAlias(const YAML::Mark& mark, YAML::anchor_t anchor) override {
        YamlNode& alias = add(YamlKind::alias, mark, untagged, YAML::NullAnchor);
        alias.distance = static_cast<std::uint32_t>(nodes_.size() - 1 - anchored_[anchor - 1]);
    }

    void OnScalar(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                  const std::string& value) override {
        add(YamlKind::scalar, mark, tag, anchor).scalar = value;
    }

    void OnSequenceStart(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                         YAML::EmitterStyle::value /*style*/) override {
        open(YamlKind::sequence, mark, tag, anchor);
    }
    void OnSequenceEnd() override { close(); }

    void OnMapStart(const YAML::Mark& mark, const std::string& tag, YAML::anchor_t anchor,
                    YAML::EmitterStyle::value /*style*/) override {
        open(YamlKind::mapping, mark, tag, anchor);
    }
    void OnMapEnd() override { close(); }

private:
    static constexpr std::string_view untagged = "?";

    YamlNode& add(YamlKind kind, const YAML::Mark& mark, std::string_view tag, YAML::anchor_t anchor) {
        const std::string_view text = source_.utf8();
        const std::size_t begin = std::min(static_cast<std::size_t>(mark.pos), text.size());
        YamlNode& node = nodes_.emplace_back();
        node.kind = kind;
        node.begin = {static_cast<std::uint32_t>(mark.line) + 1, static_cast<std::uint32_t>(mark.column) + 1,
                      static_cast<std::uint32_t>(source_.origin(begin))};
        if (begin == text.size()) {  // where yaml-cpp has gone back to the first column
            node.begin.column = static_cast<std::uint32_t>(begin - (text.rfind('\n') + 1)) + 1;
        }
        node.place = node.begin;
        if (anchor != YAML::NullAnchor) {
            anchored_.push_back(nodes_.size() - 1);
        }
        const YamlProperties properties{std::exchange(anchor_name_size_, 0), tag != untagged};
        if (properties.anchor_name_size > 0 || properties.tagged) {
            pass_properties(node, begin, properties);
        }
        return node;
    }

    void pass_properties(YamlNode& node, std::size_t begin, YamlProperties properties) const {
        const YamlPropertyPlaces places = find_yaml_properties(source_.utf8(), begin, properties);
        if (places.anchor) {
            node.anchor = moved(node.begin, begin, *places.anchor);
        }
        node.place = moved(node.begin, begin, places.value);
    }

    YamlPlace moved(const YamlPlace& place, std::size_t from, std::size_t to) const {
        const std::string_view between = source_.utf8().substr(from, to - from);
        const std::size_t line_feed = between.rfind('\n');
        const auto lines = static_cast<std::uint32_t>(std::count(between.begin(), between.end(), '\n'));
        const auto origin = static_cast<std::uint32_t>(source_.origin(to));
        if (line_feed == std::string_view::npos) {
            return {place.line, place.column + static_cast<std::uint32_t>(between.size()), origin};
        }
        return {place.line + lines, static_cast<std::uint32_t>(between.size() - line_feed), origin};
    }

    void open(YamlKind kind, const YAML::Mark& mark, std::string_view tag, YAML::anchor_t anchor) {
        open_.push_back(nodes_.size());
        add(kind, mark, tag, anchor);
    }

    void close() {
        YamlNode& collection = nodes_[open_.back()];
        collection.size = static_cast<std::uint32_t>(nodes_.size() - open_.back());
        open_.pop_back();
    }

    const YamlSource& source_;
    std::vector<YamlNode> nodes_;
    std::vector<std::size_t> open_;
    std::vector<std::size_t> anchored_;  // yaml-cpp numbers anchors from 1
    std::size_t anchor_name_size_ = 0;   // of the node that comes next
};

YAML::Mark mark_of(const YamlNode& node) {
    YAML::Mark mark;
    mark.pos = static_cast<int>(node.begin.offset);
    mark.line = static_cast<int>(node.begin.line - 1);
    mark.column = static_cast<int>(node.begin.column - 1);
    return mark;
}

}  // namespace

YamlDocument read_yaml(std::string_view text) {
    const YamlSource source(text);
    ViewBuffer buffer(text);
    std::istream stream(&buffer);
    TreeBuilder builder(source);
    YAML::Parser parser(stream);
    if (!parser.HandleNextDocument(builder)) {
        builder.OnNull(YAML::Mark(), YAML::NullAnchor);
    }
    return {builder.take()};
}

YamlDocument read_yaml_file(const std::string& path) {
    std::string text;
    try {
        text = core::fs::read_text_file(path);
    } catch (const std::runtime_error&) {
        throw YAML::BadFile(path);
    }
    return read_yaml(text);
}

bool yaml_boolean(const YamlNode& scalar) {
    bool flag = false;
    if (!YAML::convert<bool>::decode(YAML::Node(scalar.scalar), flag)) {
        throw YAML::TypedBadConversion<bool>(mark_of(scalar));
    }
    return flag;
}

std::optional<double> yaml_special_number(const std::string& text) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    if (YAML::conversion::IsInfinity(text)) {
        return infinity;
    }
    if (YAML::conversion::IsNegativeInfinity(text)) {
        return -infinity;
    }
    if (YAML::conversion::IsNaN(text)) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    return std::nullopt;
}

void throw_yaml_subscript(const YamlNode& scalar, const char* key) {
    throw YAML::BadSubscript(mark_of(scalar), key);
}

}  // namespace velk::input::amesp
