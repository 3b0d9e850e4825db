#include "NR_OpProfile.h"

#include "CoreStore.h"
#include "DeviceFacts.h"
#include "Failure.h"
#include "vtString.h"

int NR_OpProfile::getSelectableProfiles(std::vector<vtTypes::String>& profiles, std::vector<bool>& flags)
{
    std::vector<OperatorPack::Profile> stored;
    if (const int status = CoreStore::instance().profiles(stored); status != STORE_OK)
        return status;
    std::vector<vtTypes::String> ids(stored.size());
    for (size_t i = 0; i < stored.size(); ++i)
        if (!vtStringFromUtf8(stored[i].id, ids[i]))
            return STORE_FAILED;
    profiles = std::move(ids);
    flags.clear();
    for (const OperatorPack::Profile& profile : stored)
        flags.push_back(profile.selectable);
    return STORE_OK;
}

vtTypes::String NR_OpProfile::getCurrentProfile()
{
    std::string id;
    vtTypes::String profile;
    CoreStore::instance().currentProfile(id);
    vtStringFromUtf8(id, profile);
    return profile;
}

int NR_OpProfile::getOpLanguageString(const vtTypes::String& profile, vtTypes::String& name)
{
    std::string id;
    OperatorPack::Profile stored;
    if (!vtStringEncodeUtf8(profile, id))
        return STORE_NOT_FOUND;
    if (const int status = CoreStore::instance().profile(id, stored); status != STORE_OK)
        return status;
    return vtStringFromUtf8(stored.name, name) ? STORE_OK : STORE_FAILED;
}

int NR_OpProfile::installProfile(const vtTypes::String& profile)
{
    std::string id;
    const int status =
        vtStringEncodeUtf8(profile, id) ? CoreStore::instance().setCurrentProfile(id) : STORE_NOT_FOUND;
    if (status != STORE_OK)
        Failure::tell(Failure::Kind::NotSaved);
    return status;
}

bool NR_OpProfile::isUserSelectProfile()
{
    bool allowed = false;
    DeviceFacts::get("user_select_profile", allowed);
    return allowed;
}
