#include "Watcher.h"

#include "EventWire.h"
#include "Output.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonObject>

namespace {

QString text(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

} // namespace

bool Watcher::start()
{
    const std::pair<const BusSignal&, void (Watcher::*)(const HostBus::Message&) const> watched[] = {
        {BusSignals::event, &Watcher::showEvent},       {BusSignals::channel, &Watcher::showChannel},
        {BusSignals::request, &Watcher::showRequest},   {BusSignals::refused, &Watcher::showRefused},
        {BusSignals::returnToIdle, &Watcher::showIdle}, {BusSignals::storeChanged, &Watcher::showChanged},
    };
    for (const auto& [signal, show] : watched)
        if (!HostBus::subscribe(
                signal, this, [this, show = show](const HostBus::Message& message) { (this->*show)(message); },
                [this](const HostBus::Refused& refused) { printUnknown(refused); }))
            return false;
    return HostBus::onLost(QCoreApplication::instance(), SLOT(quit())) && HostBus::flush();
}

void Watcher::showEvent(const HostBus::Message& message) const
{
    const auto [event, mode] = EventWire::unpack(message.arguments);
    QStringList columns = {"event", text(event.name()), QString::number(event.value())};
    QJsonValue parameters;
    if (mode != 0)
        columns << "mode=" + QString::number(mode);
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
                    {"mode", mode},
                    {"text", text(event.text())},
                    {"parameters", parameters}});
}

void Watcher::showChannel(const HostBus::Message& message) const
{
    const QString words = message.arguments[0].toString();
    const QString data = QString::fromLatin1(message.arguments[1].toByteArray().toHex());
    QStringList columns = {"channel", message.path, words};
    if (!data.isEmpty())
        columns << "data=" + data;
    print(columns, {{"kind", "channel"}, {"channel", message.path}, {"message", words}, {"data", data}});
}

void Watcher::showRequest(const HostBus::Message& message) const
{
    const QString operation = message.arguments[0].toString();
    const QStringList arguments = message.arguments[1].toStringList();
    print(
        QStringList{"request", operation} + arguments,
        {{"kind", "request"}, {"operation", operation}, {"arguments", QJsonArray::fromStringList(arguments)}});
}

void Watcher::showRefused(const HostBus::Message& message) const
{
    const QString operation = message.arguments[0].toString();
    const QString reason = message.arguments[2].toString();
    print({"refused", operation, reason},
          {{"kind", "refused"},
           {"operation", operation},
           {"arguments", QJsonArray::fromStringList(message.arguments[1].toStringList())},
           {"reason", reason}});
}

void Watcher::showIdle(const HostBus::Message& message) const
{
    const int reason = message.arguments[0].toInt();
    print({"idle", QString::number(reason)}, {{"kind", "idle"}, {"reason", reason}});
}

void Watcher::showChanged(const HostBus::Message& message) const
{
    const QStringList names = message.arguments[0].toStringList();
    print(QStringList{"changed"} + names, {{"kind", "changed"}, {"names", QJsonArray::fromStringList(names)}});
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

void Watcher::printUnknown(const HostBus::Refused& refused) const
{
    print({"unknown", refused.path, refused.interface, refused.name, refused.signature},
          {{"kind", "unknown"},
           {"path", refused.path},
           {"interface", refused.interface},
           {"signal", refused.name},
           {"signature", refused.signature}});
}
