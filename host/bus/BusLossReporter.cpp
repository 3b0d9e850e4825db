#include "BusLossReporter.h"

#include "Log.h"

void BusLossReporter::report()
{
    static const Log logger("HostBus");
    logger(3, "the session bus is gone");
}
