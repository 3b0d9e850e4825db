#include "Entry.h"

#include "ApiRegistry.h"

ActionEntry::ActionEntry(const std::string& apiName, const std::string& label)
    : mApiName(apiName), mLabel(label)
{
}

void ActionEntry::invoke()
{
    if (mArgMode == 0)
        ApiRegistry::instance()->act(mApiName);
}

void ActionEntry::invoke(int v)
{
    if (mArgMode == 1)
        ApiRegistry::instance()->set(mApiName, v);
}
