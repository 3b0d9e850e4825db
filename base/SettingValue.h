#pragma once

#include <string>
#include <variant>

// A setting's value; the alternative is its type.
using SettingValue = std::variant<int, bool, std::string>;
