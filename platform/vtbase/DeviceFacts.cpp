#include "DeviceFacts.h"

#include "CoreStore.h"
#include "Modem.h"
#include "Text.h"
#include "vtString.h"

namespace DeviceFacts {

// The hand comes first, so that every state of a phone can be tried, also of one that can't tell.
Fact find(std::string_view name)
{
    std::string value;
    const int status = CoreStore::instance().fact(name, value);
    if (status == STORE_OK)
        return {value.empty() ? STORE_NOT_FOUND : STORE_OK, value, Fact::Source::Hand};
    if (status == STORE_NOT_FOUND)
        if (const auto told = Modem::fact(name))
            return {STORE_OK, *told, Fact::Source::Modem};
    return {status, {}, Fact::Source::None};
}

int get(std::string_view name, vtTypes::String& text)
{
    const Fact fact = find(name);
    if (fact.status != STORE_OK)
        return fact.status;
    return vtStringFromUtf8(fact.value, text) ? STORE_OK : STORE_FAILED;
}

int get(std::string_view name, int& number)
{
    const Fact fact = find(name);
    if (fact.status != STORE_OK)
        return fact.status;
    const std::optional<int> parsed = Text::integer(fact.value);
    number = parsed.value_or(number);
    return parsed ? STORE_OK : STORE_WRONG_TYPE;
}

int get(std::string_view name, bool& flag)
{
    const Fact fact = find(name);
    if (fact.status != STORE_OK)
        return fact.status;
    if (fact.value != "true" && fact.value != "false")
        return STORE_WRONG_TYPE;
    flag = fact.value == "true";
    return STORE_OK;
}

} // namespace DeviceFacts
