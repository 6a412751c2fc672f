// SPDX-License-Identifier: MIT
#pragma once

#include <nlohmann/json.hpp>
#include <ostream>

namespace cli {

using Json = nlohmann::ordered_json;

inline void Print(const Json& json, std::ostream& out) {
  // Names come from files; what is no UTF-8 among them must not stop the answer.
  out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

}  // namespace cli
