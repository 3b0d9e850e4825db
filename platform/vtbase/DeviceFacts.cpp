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
    const auto result = std::from_chars(value.data(), value.data() + value.size(), number);
    return result.ec == std::errc() ? STORE_OK : STORE_WRONG_TYPE;
}

int get(std::string_view name, bool& flag)
{
    std::string value;
    const int status = CoreStore::instance().fact(name, value);
    if (status == STORE_OK)
        flag = value == "true";
    return status;
}

} // namespace DeviceFacts
