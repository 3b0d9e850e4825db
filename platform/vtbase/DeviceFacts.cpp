#include "DeviceFacts.h"

#include "CoreStore.h"
#include "vtString.h"

#include <charconv>

namespace DeviceFacts {

int get(std::string_view name, vtTypes::String& text)
{
    std::string value;
    const int status = CoreStore::instance().fact(name, value);
    if (status != STORE_OK)
        return status;
    return vtStringFromUtf8(value, text) ? STORE_OK : STORE_FAILED;
}

int get(std::string_view name, int& number)
{
    std::string value;
    const int status = CoreStore::instance().fact(name, value);
    if (status != STORE_OK)
        return status;
    const char* end = value.data() + value.size();
    int parsed = 0;
    const auto [stop, error] = std::from_chars(value.data(), end, parsed);
    if (error != std::errc() || stop != end)
        return STORE_WRONG_TYPE;
    number = parsed;
    return STORE_OK;
}

int get(std::string_view name, bool& flag)
{
    std::string value;
    const int status = CoreStore::instance().fact(name, value);
    if (status != STORE_OK)
        return status;
    if (value != "true" && value != "false")
        return STORE_WRONG_TYPE;
    flag = value == "true";
    return STORE_OK;
}

} // namespace DeviceFacts
