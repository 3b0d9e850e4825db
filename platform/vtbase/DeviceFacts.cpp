#include "DeviceFacts.h"

#include "CoreStore.h"
#include "Text.h"
#include "vtString.h"

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
    const std::optional<int> parsed = Text::integer(value);
    number = parsed.value_or(number);
    return parsed ? STORE_OK : STORE_WRONG_TYPE;
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
