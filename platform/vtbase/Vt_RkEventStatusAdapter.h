#pragma once

#include "vtTypes.h"

// The subscriber's identity. Both return 0, or non-zero with the output left alone when it can't be read.
class Vt_RkEventStatusAdapter
{
public:
    int getIMSI(vtTypes::String& imsi);
    int getMSISDN(vtTypes::String& msisdn);
};
