#include "probeIdentity.h"

#include "Log.h"
#include "Vt_RkEventStatusAdapter.h"

namespace {

const Log logger("Vt_Menu");

// Log filters match on these source lines, so they stay what they are wherever the calls move.
constexpr int imsiLogLine = 70;
constexpr int msisdnLogLine = 78;

} // namespace

bool probeIdentity()
{
    Vt_RkEventStatusAdapter adapter;
    vtTypes::String imsi;
    if (adapter.getIMSI(imsi) != 0 || imsi.empty()) {
        logger({3, imsiLogLine}, "cannot get IMSI");
        return false;
    }
    vtTypes::String msisdn;
    if (adapter.getMSISDN(msisdn) != 0 || msisdn.empty())
        logger({3, msisdnLogLine}, "cannot get MSISDN");
    return true;
}
