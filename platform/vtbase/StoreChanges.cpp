#include "StoreChanges.h"

#include "CoreStore.h"
#include "HostBus.h"
#include "Modem.h"

namespace {

StoreChanges* theOne = nullptr;
bool isFlushed = true;

void tell(const std::vector<std::string>& names)
{
    QStringList list;
    for (const std::string& name : names)
        list += QString::fromStdString(name);
    const bool isSent = HostBus::hasAddress() && HostBus::send(BusSignals::storeChanged, {list});
    isFlushed = isFlushed && !isSent;
    if (!isSent && theOne)
        QMetaObject::invokeMethod(
            theOne, [list] { emit theOne->changed(list); }, Qt::QueuedConnection);
}

} // namespace

void StoreChanges::announce()
{
    CoreStore::onChanged(tell);
}

void StoreChanges::flush()
{
    if (!std::exchange(isFlushed, true))
        HostBus::flush();
}

StoreChanges* StoreChanges::instance()
{
    if (!theOne)
        theOne = new StoreChanges;
    return theOne;
}

StoreChanges::StoreChanges()
{
    announce();
    Modem::onChanged([this] {
        QMetaObject::invokeMethod(
            this, [this] { emit changed({}); }, Qt::QueuedConnection);
    });
    HostBus::subscribe(BusSignals::storeChanged, this, [this](const HostBus::Message& message) {
        emit changed(message.arguments.at(0).toStringList());
    });
}
