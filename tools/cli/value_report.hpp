// Values as `get` prints them.
#pragma once

#include <memory>
#include <string>

#include "key_values.hpp"

namespace amesp_inp {

enum class ValueFormat { bare, named, json, csv };

// Takes the values one after the other; prints as it goes.
class ValueReport {
public:
    ValueReport() = default;
    ValueReport(const ValueReport&) = delete;
    ValueReport& operator=(const ValueReport&) = delete;
    virtual ~ValueReport() = default;

    // What `file` has by `key`, a text that the user typed; nothing for what it does not have.
    virtual void add(const std::string& file, const std::string& key, const std::optional<KeyValue>& value) = 0;
    virtual void finish() {}
};

std::unique_ptr<ValueReport> make_value_report(ValueFormat format, const std::string& schema_path);

}  // namespace amesp_inp
