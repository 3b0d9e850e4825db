#include "ApiRegistry.h"

namespace {

// The function of that name, or null.
template <class Function>
Function lookUp(const std::map<std::string, Function>& section, const std::string& name)
{
    const auto found = section.find(name);
    return found == section.end() ? nullptr : found->second;
}

} // namespace

ApiRegistry* ApiRegistry::instance()
{
    static ApiRegistry* const registry = new ApiRegistry;
    return registry;
}

std::string ApiRegistry::text(const std::string& name) const
{
    const Text function = lookUp(mTexts, name);
    return function ? function() : std::string();
}

void ApiRegistry::act(const std::string& name) const
{
    if (const Action function = lookUp(mActions, name))
        function();
}

void ApiRegistry::set(const std::string& name, int index) const
{
    if (const Setter function = lookUp(mSetters, name))
        function(index);
}

bool ApiRegistry::isHidden(const std::string& name) const
{
    const HidePredicate function = lookUp(mHidePredicates, name);
    return function && function();
}
