// The one file that sees the JSON library. Only single strings and numbers go through it: to take a tree of JSON values
// down needs memory, and where there is none left that would end the program in the middle of its work.
#include <nlohmann/json.hpp>
#include <velk/input/amesp/report.hpp>

namespace velk::input::amesp {

using Json = nlohmann::json;

std::string json_string(std::string_view text) {
    return Json(text).dump(-1, ' ', false, Json::error_handler_t::replace);
}

std::string json_number(double value) {
    return Json(value).dump();
}

}  // namespace velk::input::amesp
