#pragma once

#include <QMap>
#include <QString>
#include <QVariantList>

#include <functional>

// A signal of ours on the bus: where it is sent, and what a receiver may count on.
struct BusSignal
{
    QString path; // empty: each at a path of its own
    QString interface;
    QString name;
    QString signature;     // exactly that of its arguments
    bool isBounded = true; // false: how large it is does not matter, for nobody reads what it says
    QString sender = {};   // the one whose alone it may be, by his own name on the bus; empty: anybody's
};

namespace BusSignals {

// An event: name, value, parameters, whether it has parameters, text, mode.
inline const BusSignal event = {QStringLiteral("/Vistane/Events"), QStringLiteral("org.vistane.Core1"),
                                QStringLiteral("Event"), QStringLiteral("sia{ss}bsi")};
// A channel's message: its text and its data, at the path that is the channel's name.
inline const BusSignal channel = {
    {}, QStringLiteral("org.vistane.QCop1"), QStringLiteral("Received"), QStringLiteral("say"), false};
// A request to other applications: operation, arguments as text.
inline const BusSignal request = {QStringLiteral("/Vistane/Platform"), QStringLiteral("org.vistane.Platform1"),
                                  QStringLiteral("Request"), QStringLiteral("sas")};
// One of these that came to nothing: operation, arguments as text, reason.
inline const BusSignal refused = {QStringLiteral("/Vistane/Platform"), QStringLiteral("org.vistane.Platform1"),
                                  QStringLiteral("Refused"), QStringLiteral("sass")};
// Something was written to the store: the names of what; none stands for everything.
inline const BusSignal storeChanged = {QStringLiteral("/Vistane/Store"), QStringLiteral("org.vistane.Store1"),
                                       QStringLiteral("Changed"), QStringLiteral("as")};
// Applications are to return to the idle screen: reason.
inline const BusSignal returnToIdle = {QStringLiteral("/Vistane/Platform"),
                                       QStringLiteral("org.vistane.Platform1"), QStringLiteral("ReturnToIdle"),
                                       QStringLiteral("i")};

// The names that the headlines service and the menu own while they run.
inline const QString service = QStringLiteral("org.vistane.Service1");
inline const QString menu = QStringLiteral("org.vistane.Menu");

} // namespace BusSignals

// How messages are let in.
namespace HostBus {

// A map of texts, as event parameters travel.
using Texts = QMap<QString, QString>;

// Largest text or array of bytes in a message, and most elements of a list or map, that are let in.
constexpr qsizetype largestText = 256 * 1024;
constexpr qsizetype mostElements = 1000;

// A signal that was let in.
struct Message
{
    QString path;
    QVariantList arguments; // int, bool, QString, QByteArray, QStringList, Texts, as the signature says
    // False when somebody owns the service's name and this came neither from him nor from this process.
    bool mayBeService = true;
};

// A signal that was not.
struct Refused
{
    QString path, interface, name, signature;
    const char* reason;
};

using Receiver = std::function<void(const Message&)>;
using RefusedReceiver = std::function<void(const Refused&)>;

} // namespace HostBus
