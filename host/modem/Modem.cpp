#include "Modem.h"

#include "BusProbe.h"
#include "Log.h"
#include "ModemManagerDaemon.h"
#include "OfonoDaemon.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace {

const Log logger("Modem");

// What Subscriber::facts() may have. For any other no bus is opened.
constexpr std::string_view toldFacts[] = {"imsi",    "msisdn",  "home_network", "current_network",
                                          "roaming", "friendly"};

constexpr int patience = 1000; // milliseconds that the first question may take
constexpr int retryMs = 1000;

std::function<void()> theListener;

class SystemBus
{
public:
    // The services, the one that is to be believed first of all. None while there is no bus.
    const std::vector<std::unique_ptr<ModemDaemon>>& daemons()
    {
        if (!mBus.isConnected() && !mIsSilent && mRest.hasExpired()) {
            mDaemons.clear();
            open();
            mRest.setRemainingTime(retryMs);
        }
        return mDaemons;
    }

private:
    void open();

    QDBusConnection mBus{QString()}; // connected to nothing
    bool mIsSilent = false;
    QDeadlineTimer mRest{0}; // until then no bus is looked for
    std::vector<std::unique_ptr<ModemDaemon>> mDaemons;
};

void SystemBus::open()
{
    const QDeadlineTimer end(patience);
    QByteArray address = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    if (address.isEmpty())
        address = "unix:path=/var/run/dbus/system_bus_socket";
    mIsSilent = !isBusAnswering(address, patience);
    if (mIsSilent)
        return logger(3, "no system bus: it does not answer");

    const QString name = QStringLiteral("vistane-modem");
    QDBusConnection::disconnectFromBus(name);
    mBus = QDBusConnection::connectToBus(QString::fromUtf8(address), name);
    if (!mBus.isConnected())
        return logOnce("no system bus: " + mBus.lastError().message().toStdString());
    mDaemons.push_back(std::make_unique<ModemManagerDaemon>(mBus));
    mDaemons.push_back(std::make_unique<OfonoDaemon>(mBus));
    for (const auto& daemon : mDaemons) {
        daemon->start(end);
        QObject::connect(daemon.get(), &ModemDaemon::changed, [] {
            if (theListener)
                theListener();
        });
    }
}

SystemBus& systemBus()
{
    static auto* bus = new SystemBus;
    return *bus;
}

} // namespace

std::optional<std::string> Modem::fact(std::string_view name)
{
    if (std::ranges::count(toldFacts, name) == 0)
        return std::nullopt;
    for (const auto& daemon : systemBus().daemons())
        if (const auto& facts = daemon->facts(); !facts.empty()) {
            const auto fact = facts.find(name);
            return fact == facts.end() ? std::nullopt : std::optional(fact->second);
        }
    return std::nullopt;
}

void Modem::onChanged(std::function<void()> listener)
{
    theListener = std::move(listener);
}
