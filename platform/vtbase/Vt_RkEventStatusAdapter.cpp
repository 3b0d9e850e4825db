#include "Vt_RkEventStatusAdapter.h"

#include "DeviceFacts.h"

int Vt_RkEventStatusAdapter::getIMSI(vtTypes::String& imsi)
{
    return DeviceFacts::get("imsi", imsi);
}

int Vt_RkEventStatusAdapter::getMSISDN(vtTypes::String& msisdn)
{
    return DeviceFacts::get("msisdn", msisdn);
}
