#pragma once

#include "SDData.h"

#include <string_view>

// The service dispatcher: asks a service of the phone to act.
class SDManager
{
public:
    // The argument means nothing on this host.
    explicit SDManager(int);

    // "PHONE_CALL" calls the number in `data`. 0 when the request went out, non-zero when there is no such
    // action or nothing can serve it.
    int performAction(std::string_view action, const SDData& data);
};
