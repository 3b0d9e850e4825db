#pragma once

#include "vtTypes.h"

#include <string_view>

// The facts of the device in the types that programs want. All return a StoreStatus; the output is left alone
// unless it is 0.
namespace DeviceFacts {

int get(std::string_view name, vtTypes::String& text);
int get(std::string_view name, int& number);
int get(std::string_view name, bool& flag);

} // namespace DeviceFacts
