#include "ModemManagerDaemon.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

#include <algorithm>

namespace {

#define MODEM_MANAGER "org.freedesktop.ModemManager1"
constexpr char modemInterface[] = MODEM_MANAGER ".Modem";
constexpr char networkInterface[] = MODEM_MANAGER ".Modem.Modem3gpp";
constexpr char simInterface[] = MODEM_MANAGER ".Sim";
constexpr char objectsInterface[] = "org.freedesktop.DBus.ObjectManager";
constexpr char propertiesInterface[] = "org.freedesktop.DBus.Properties";
constexpr char root[] = "/org/freedesktop/ModemManager1";

using Content = SubscriberField::Content;
constexpr SubscriberField fields[] = {
    {simInterface, "Imsi", &Subscriber::imsi, Content::Digits},
    {modemInterface, "OwnNumbers", &Subscriber::number, Content::Number},
    {simInterface, "OperatorName", &Subscriber::homeName, Content::Name},
    {networkInterface, "OperatorName", &Subscriber::networkName, Content::Name},
    {networkInterface, "OperatorCode", &Subscriber::networkCode, Content::Digits},
};
constexpr const char* others[] = {"RegistrationState", "Sim"};

constexpr ModemDaemon::Notice notices[] = {
    {root, objectsInterface, "InterfacesAdded", nullptr},
    {root, objectsInterface, "InterfacesRemoved", nullptr},
    {nullptr, propertiesInterface, "PropertiesChanged", modemInterface},
    {nullptr, propertiesInterface, "PropertiesChanged", networkInterface},
    {nullptr, propertiesInterface, "PropertiesChanged", simInterface},
};

constexpr int mostModems = 64; // that are looked at

using Interfaces = QMap<QString, QVariantMap>;

// By the numbers of the service's registration states, those of which make calls or only messages possible.
Subscriber::Registration registrationOf(uint state)
{
    using Registration = Subscriber::Registration;
    switch (state) {
    case 1: // home
    case 6: // home, messages only
    case 9: // home, calls by another network's technology
        return Registration::Home;
    case 5: // and so abroad
    case 7:
    case 10:
        return Registration::Roaming;
    default: // idle, searching, denied, emergency calls only
        return Registration::None;
    }
}

} // namespace

struct ModemManagerDaemon::Modem
{
    Modem(const QString& path, const Interfaces& interfaces)
        : path(path), sim(typed<QDBusObjectPath>(interfaces.value(modemInterface), "Sim").path())
    {
        for (const char* interface : {modemInterface, networkInterface})
            fill(subscriber, fields, interface, interfaces.value(interface));
        subscriber.registration =
            registrationOf(typed<uint>(interfaces.value(networkInterface), "RegistrationState"));
    }

    bool hasSim() const { return sim.size() > 1; } // it is "/" when there is none
    // As their numbers are.
    bool operator<(const Modem& other) const
    {
        return path.size() != other.path.size() ? path.size() < other.path.size() : path < other.path;
    }

    QString path, sim;
    Subscriber subscriber; // as far as the modem itself knows
};

ModemManagerDaemon::ModemManagerDaemon(const QDBusConnection& bus)
    : ModemDaemon({MODEM_MANAGER, notices, fields, others}, bus)
{
}

void ModemManagerDaemon::read()
{
    ask(root, objectsInterface, "GetManagedObjects", "a{oa{sa{sv}}}", [this](const QVariant& answer) {
        const auto objects = answer.value<QDBusArgument>();
        std::vector<Modem> modems;
        objects.beginMap();
        for (int count = 0; count < mostModems && !objects.atEnd(); ++count) {
            QDBusObjectPath path;
            Interfaces interfaces;
            objects.beginMapEntry();
            objects >> path >> interfaces;
            objects.endMapEntry();
            if (const Modem modem(path.path(), interfaces); modem.hasSim())
                modems.push_back(modem);
        }
        objects.endMap(); // frees what beginMap() made
        std::sort(modems.begin(), modems.end());
        readSim(modems, 0);
    });
}

// A SIM card is an object of its own, which is not among those of the modems.
void ModemManagerDaemon::readSim(const std::vector<Modem>& modems, size_t number)
{
    if (number == modems.size())
        return know({});
    const auto read = [=, this](const QVariant& properties) {
        Subscriber subscriber = modems[number].subscriber;
        fill(subscriber, fields, simInterface, qdbus_cast<QVariantMap>(properties));
        if (subscriber.imsi.empty())
            readSim(modems, number + 1);
        else
            know(subscriber);
    };
    ask(modems[number].sim, propertiesInterface, "GetAll", "a{sv}", read, {simInterface});
}
