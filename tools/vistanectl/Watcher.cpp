#include "Watcher.h"

#include "EventWire.h"
#include "HostBus.h"
#include "Output.h"
#include "PlatformSignals.h"
#include "QCopWire.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QJsonArray>
#include <QJsonObject>

namespace {

struct Subscription
{
    QString path; // empty for all
    QString interface;
    QString signal;
    const char* slot;
};

const Subscription subscriptions[] = {
    {EventWire::path, EventWire::interface, EventWire::signal, SLOT(showEvent(QDBusMessage))},
    {{}, QCopWire::interface, QCopWire::signal, SLOT(showChannel(QDBusMessage))},
    {PlatformSignals::path, PlatformSignals::busInterface, PlatformSignals::request,
     SLOT(showRequest(QDBusMessage))},
    {PlatformSignals::path, PlatformSignals::busInterface, PlatformSignals::returnToIdle,
     SLOT(showIdle(QDBusMessage))},
};

QString text(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

} // namespace

bool Watcher::start()
{
    for (const auto& [path, interface, signal, slot] : subscriptions)
        if (!HostBus::subscribe(path, interface, signal, this, slot))
            return false;
    return HostBus::onLost(QCoreApplication::instance(), SLOT(quit())) && HostBus::flush();
}

void Watcher::showEvent(const QDBusMessage& message)
{
    const auto received = EventWire::unpack(message);
    if (!received)
        return printUnknown(message);
    const Vt_Event& event = received->event;
    QStringList columns = {"event", text(event.name()), QString::number(event.value())};
    QJsonValue parameters;
    if (received->mode != 0)
        columns << "mode=" + QString::number(received->mode);
    if (!event.text().empty())
        columns << "text=" + text(event.text());
    if (event.parameters()) {
        QJsonObject object;
        for (const auto& [key, value] : *event.parameters()) {
            columns << "param." + text(key) + '=' + text(value);
            object[text(key)] = text(value);
        }
        parameters = object;
    }
    print(columns, {{"kind", "event"},
                    {"name", text(event.name())},
                    {"value", event.value()},
                    {"mode", received->mode},
                    {"text", text(event.text())},
                    {"parameters", parameters}});
}

void Watcher::showChannel(const QDBusMessage& message)
{
    if (message.signature() != "say")
        return printUnknown(message);
    const QString words = message.arguments().at(0).toString();
    const QString data = QString::fromLatin1(message.arguments().at(1).toByteArray().toHex());
    QStringList columns = {"channel", message.path(), words};
    if (!data.isEmpty())
        columns << "data=" + data;
    print(columns, {{"kind", "channel"}, {"channel", message.path()}, {"message", words}, {"data", data}});
}

void Watcher::showRequest(const QDBusMessage& message)
{
    if (message.signature() != "sas")
        return printUnknown(message);
    const QString operation = message.arguments().at(0).toString();
    const QStringList arguments = message.arguments().at(1).toStringList();
    print(
        QStringList{"request", operation} + arguments,
        {{"kind", "request"}, {"operation", operation}, {"arguments", QJsonArray::fromStringList(arguments)}});
}

void Watcher::showIdle(const QDBusMessage& message)
{
    if (message.signature() != "i")
        return printUnknown(message);
    const int reason = message.arguments().at(0).toInt();
    print({"idle", QString::number(reason)}, {{"kind", "idle"}, {"reason", reason}});
}

void Watcher::print(const QStringList& columns, const QJsonObject& object) const
{
    if (mJson)
        return Output::line(object);
    std::string line;
    for (const QString& column : columns)
        line += (line.empty() ? "" : "\t") + Output::escaped(column.toStdString());
    Output::line(line);
}

void Watcher::printUnknown(const QDBusMessage& message) const
{
    print({"unknown", message.path(), message.interface(), message.member(), message.signature()},
          {{"kind", "unknown"},
           {"path", message.path()},
           {"interface", message.interface()},
           {"signal", message.member()},
           {"signature", message.signature()}});
}
