#pragma once

#include "vtTypes.h"

#include <string>
#include <string_view>

// The facts of the device: what was set by hand, else what the modem tells.
namespace DeviceFacts {

struct Fact
{
    enum class Source { None, Hand, Modem };

    int status;        // a StoreStatus; STORE_NOT_FOUND when the device can't tell
    std::string value; // empty unless the status is 0
    Source source;
};

Fact find(std::string_view name);

// In the types that programs want. All return a StoreStatus; the output is left alone unless it is 0.
int get(std::string_view name, vtTypes::String& text);
int get(std::string_view name, int& number);
int get(std::string_view name, bool& flag);

} // namespace DeviceFacts
