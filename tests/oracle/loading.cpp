// The same YAML through the library's loader and through the model of it.
#include <stdexcept>
#include <string_view>

#include "oracle/comparison.hpp"
#include "oracle/described.hpp"
#include "oracle/schema_reading_model.hpp"

namespace velk::oracle {

using namespace input::amesp;

std::string difference_in_loading(const std::string& yaml) {
    const TablesHandle model = read_schema(yaml);
    try {
        const InputSchema schema = InputSchema::from_yaml(yaml);
        return model == nullptr ? "the library loads what the model refuses"
                                : first_difference(described(schema.tables()), described(*model));
    } catch (const std::runtime_error& error) {
        if (!std::string_view(error.what()).starts_with("failed to parse AMESP input schema YAML: ")) {
            return std::string("an error that begins otherwise: ") + error.what();
        }
        return model == nullptr ? "" : std::string("the library refuses what the model loads: ") + error.what();
    }
}

}  // namespace velk::oracle
