// Values as plain text, as JSON and as CSV.
#include "value_report.hpp"

#include <velk/input/amesp/report.hpp>

#include "json_writer.hpp"
#include "output.hpp"

namespace amesp_inp {
namespace {

using velk::input::amesp::append_printable;

// Words share one.
std::vector<std::string> lines_of(const KeyValue& value) {
    if (value.shape != KeyValue::Shape::words) {
        return value.parts;
    }
    std::string line;
    for (const std::string& word : value.parts) {
        line += (line.empty() ? "" : " ") + word;
    }
    return {line};
}

class BareReport : public ValueReport {
public:
    void add(const std::string& /*file*/, const std::string& /*key*/, const std::optional<KeyValue>& value) override {
        for (const std::string& line : value ? lines_of(*value) : std::vector<std::string>()) {
            print(line + "\n");
        }
    }
};

// Every line says whose it is, so that other programs can pick it alone.
class NamedReport : public ValueReport {
public:
    void add(const std::string& file, const std::string& key, const std::optional<KeyValue>& value) override {
        std::string names;
        append_printable(names, file);
        names += '\t';
        append_printable(names, key);
        names += '\t';
        for (const std::string& line : value ? lines_of(*value) : std::vector<std::string>()) {
            print(names + line + "\n");
        }
    }
};

class JsonReport : public ValueReport {
public:
    explicit JsonReport(const std::string& schema_path) {
        json_.begin_object();
        json_.key("format");
        json_.string("amesp-inp values");
        json_.key("version");
        json_.integer(1);
        json_.key("schema");
        json_.string(schema_path);
        json_.key("values");
        json_.begin_list();
    }

    void add(const std::string& file, const std::string& key, const std::optional<KeyValue>& value) override {
        json_.begin_object();
        json_.key("file");
        json_.string(file);
        json_.key("key");
        json_.string(key);
        json_.key("value");
        add_value(value);
        json_.end_object();
    }

    void finish() override {
        json_.end_list();
        json_.end_object();
        json_.finish();
    }

private:
    void add_value(const std::optional<KeyValue>& value) {
        if (!value) {
            return json_.null();
        }
        if (value->shape == KeyValue::Shape::text) {
            return json_.string(value->parts.front());
        }
        json_.begin_list();
        for (const std::string& part : value->parts) {
            json_.string(part);
        }
        json_.end_list();
    }

    JsonWriter json_;
};

// RFC 4180.
class CsvReport : public ValueReport {
public:
    CsvReport() { add_line("file,key,value"); }

    void add(const std::string& file, const std::string& key, const std::optional<KeyValue>& value) override {
        for (const std::string& line : value ? lines_of(*value) : std::vector<std::string>()) {
            add_line(field(file) + "," + field(key) + "," + field(line));
        }
    }

private:
    // Of a line on a terminal, only its end is a line feed.
    static void add_line(const std::string& line) {
        print(line, Layout::tabs);
        print_styled("\r\n");
    }

    static std::string field(const std::string& text) {
        if (text.find_first_of("\",\r\n") == std::string::npos) {
            return text;
        }
        std::string quoted = "\"";
        for (const char c : text) {
            quoted.append(c == '"' ? 2 : 1, c);
        }
        return quoted + "\"";
    }
};

}  // namespace

std::unique_ptr<ValueReport> make_value_report(ValueFormat format, const std::string& schema_path) {
    switch (format) {
        case ValueFormat::named:
            return std::make_unique<NamedReport>();
        case ValueFormat::json:
            return std::make_unique<JsonReport>(schema_path);
        case ValueFormat::csv:
            return std::make_unique<CsvReport>();
        case ValueFormat::bare:
            break;
    }
    return std::make_unique<BareReport>();
}

}  // namespace amesp_inp
