#include "OfonoDaemon.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

namespace {

constexpr char managerInterface[] = "org.ofono.Manager";
constexpr char modemInterface[] = "org.ofono.Modem";
constexpr char simInterface[] = "org.ofono.SimManager";
constexpr char networkInterface[] = "org.ofono.NetworkRegistration";

using Content = SubscriberField::Content;
constexpr SubscriberField fields[] = {
    {simInterface, "SubscriberIdentity", &Subscriber::imsi, Content::Digits},
    {simInterface, "SubscriberNumbers", &Subscriber::number, Content::Number},
    {simInterface, "ServiceProviderName", &Subscriber::homeName, Content::Name},
    {networkInterface, "Name", &Subscriber::networkName, Content::Name},
    {networkInterface, "MobileCountryCode", &Subscriber::networkCode, Content::Digits},
    {networkInterface, "MobileNetworkCode", &Subscriber::networkCode, Content::Digits},
};

// By its first argument the bus keeps back what matters to nobody here, as the strength of the signal.
constexpr char changed[] = "PropertyChanged";
constexpr ModemDaemon::Notice notices[] = {
    {nullptr, managerInterface, "ModemAdded", nullptr},
    {nullptr, managerInterface, "ModemRemoved", nullptr},
    {nullptr, modemInterface, changed, "Interfaces"},
    {nullptr, simInterface, changed, "Present"},
    {nullptr, simInterface, changed, "SubscriberIdentity"},
    {nullptr, simInterface, changed, "SubscriberNumbers"},
    {nullptr, simInterface, changed, "ServiceProviderName"},
    {nullptr, networkInterface, changed, "Status"},
    {nullptr, networkInterface, changed, "Name"},
    {nullptr, networkInterface, changed, "MobileCountryCode"},
    {nullptr, networkInterface, changed, "MobileNetworkCode"},
};

constexpr int mostModems = 64; // that are looked at

Subscriber::Registration registrationOf(const QVariantMap& network)
{
    const QString status = typed<QString>(network, "Status");
    return status == "registered" ? Subscriber::Registration::Home
           : status == "roaming"  ? Subscriber::Registration::Roaming
                                  : Subscriber::Registration::None;
}

} // namespace

OfonoDaemon::OfonoDaemon(const QDBusConnection& bus) : ModemDaemon({"org.ofono", notices, fields, {}}, bus) {}

void OfonoDaemon::read()
{
    ask("/", managerInterface, "GetModems", "a(oa{sv})", [this](const QVariant& answer) {
        const auto list = answer.value<QDBusArgument>();
        std::vector<Modem> modems;
        list.beginArray();
        for (int count = 0; count < mostModems && !list.atEnd(); ++count) {
            QDBusObjectPath path;
            QVariantMap properties;
            list.beginStructure();
            list >> path >> properties;
            list.endStructure();
            const QStringList interfaces = typed<QStringList>(properties, "Interfaces");
            if (interfaces.contains(simInterface))
                modems.push_back({path.path(), interfaces.contains(networkInterface)});
        }
        list.endArray(); // frees what beginArray() made
        readSim(modems, 0);
    });
}

void OfonoDaemon::readSim(const std::vector<Modem>& modems, size_t number)
{
    if (number == modems.size())
        return know({});
    const auto read = [=, this](const QVariant& properties) {
        Subscriber subscriber;
        fill(subscriber, fields, simInterface, qdbus_cast<QVariantMap>(properties));
        if (subscriber.imsi.empty())
            readSim(modems, number + 1);
        else if (modems[number].hasNetwork)
            readNetwork(modems[number].path, subscriber);
        else
            know(subscriber);
    };
    ask(modems[number].path, simInterface, "GetProperties", "a{sv}", read);
}

void OfonoDaemon::readNetwork(const QString& path, const Subscriber& known)
{
    const auto read = [this, known](const QVariant& properties) {
        Subscriber subscriber = known;
        const auto network = qdbus_cast<QVariantMap>(properties);
        fill(subscriber, fields, networkInterface, network);
        subscriber.registration = registrationOf(network);
        know(subscriber);
    };
    ask(path, networkInterface, "GetProperties", "a{sv}", read);
}
