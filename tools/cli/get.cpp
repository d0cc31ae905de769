// amesp-inp get: values of input files, for scripts.
#include "get.hpp"

#include <velk/input/amesp/parser.hpp>

#include "edit_output.hpp"
#include "key_values.hpp"
#include "value_report.hpp"

namespace amesp_inp {
namespace {

using namespace velk::input::amesp;

// Without a name only the values of the one file that was asked for.
ValueFormat format_of(const GetOptions& options, const std::vector<Input>& inputs) {
    if (options.format == "json") {
        return ValueFormat::json;
    }
    if (options.format == "csv") {
        return ValueFormat::csv;
    }
    return options.names || !is_one_file(options.inputs, inputs) ? ValueFormat::named : ValueFormat::bare;
}

// All keys are understood before the first value is printed.
int get_from(const Input& input, const InputSchema& schema, const std::vector<std::string>& keys, ValueReport& report) {
    const std::string text = read_input(input);
    const AIPData data = AIPParser::parse_string(text, schema, {true, false}).data;
    std::vector<Key> understood;
    understood.reserve(keys.size());
    for (const std::string& key : keys) {
        understood.push_back(find_key(key, schema, data, input.name));
    }
    int status = exit_clean;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const std::optional<KeyValue> value = value_of(understood[i], data, schema, text);
        report.add(input.name, keys[i], value);
        if (!value) {
            complain("'" + input.name + "' has no " + keys[i]);
            status = exit_findings;
        }
    }
    return status;
}

}  // namespace

int run_get(const GetOptions& options) {
    const std::string schema_path = find_schema(options.schema);
    const InputSchema schema = load_schema_file(schema_path);
    for (const std::string& key : options.keys) {
        find_key(key, schema);  // a mistake is told once, not for each file
    }
    const std::vector<Input> inputs = collect_inputs(options.inputs);
    const std::unique_ptr<ValueReport> report = make_value_report(format_of(options, inputs), schema_path);
    const int status =
        for_each_input(inputs, [&](const Input& input) { return get_from(input, schema, options.keys, *report); });
    report->finish();
    return status;
}

}  // namespace amesp_inp
