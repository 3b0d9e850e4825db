#pragma once

#include "vtTypes.h"

#include <vector>

// The operator profiles under which the service can run. Operations that return an integer return 0, or
// non-zero with the outputs left alone.
class NR_OpProfile
{
public:
    // Replaces `profiles` by the identifiers of all profiles, in the operator's order, and `flags` by as many
    // booleans: true where the user may choose that profile.
    int getSelectableProfiles(std::vector<vtTypes::String>& profiles, std::vector<bool>& flags);

    // The profile in force; empty when there is none.
    vtTypes::String getCurrentProfile();

    // The name of a profile as people read it.
    int getOpLanguageString(const vtTypes::String& profile, vtTypes::String& name);

    // Puts a profile in force.
    int installProfile(const vtTypes::String& profile);

    // Whether the user may choose a profile at all.
    bool isUserSelectProfile();
};
