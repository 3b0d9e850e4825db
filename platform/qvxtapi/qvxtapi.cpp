#include "qvxtapi.h"

#include "Log.h"

namespace {
const Log logger("qvxtapi");
}

int TAPI_CLIENT_Init(int /*client*/, int /*flags*/)
{
    logger(7, "telephony client started");
    return 0;
}

int TAPI_CLIENT_Fini()
{
    logger(7, "telephony client finished");
    return 0;
}
