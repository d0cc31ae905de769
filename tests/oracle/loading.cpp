// The same YAML through the library's loader and through the model of it.
#include <stdexcept>

#include "oracle/comparison.hpp"
#include "oracle/described.hpp"
#include "oracle/schema_reading_model.hpp"

namespace velk::oracle {

using namespace input::amesp;

std::string difference_in_loading(const std::string& yaml) {
    const SchemaReading model = read_schema(yaml);
    try {
        const InputSchema schema = InputSchema::from_yaml(yaml);
        return model.tables == nullptr ? "the library loads what the model refuses: " + model.failure
                                       : first_difference(described(schema.tables()), described(*model.tables));
    } catch (const std::runtime_error& error) {
        const std::string expected = "failed to parse AMESP input schema YAML: " + model.failure;
        if (model.tables != nullptr || error.what() != expected) {
            return std::string("the library refuses with: ") + error.what() + "\nthe model: " + model.failure;
        }
        return "";
    }
}

}  // namespace velk::oracle
