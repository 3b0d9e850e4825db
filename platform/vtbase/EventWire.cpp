#include "EventWire.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QMap>

namespace {

using WireParameters = QMap<QString, QString>;

const QString signature = QStringLiteral("sia{ss}bsi");

} // namespace

namespace EventWire {

QVariantList pack(const Vt_Event& event, int mode)
{
    qDBusRegisterMetaType<WireParameters>();
    WireParameters parameters;
    if (event.parameters())
        for (const auto& [key, value] : *event.parameters())
            parameters.insert(QString::fromStdString(key), QString::fromStdString(value));
    return {QString::fromStdString(event.name()), event.value(),
            QVariant::fromValue(parameters),      event.parameters() != nullptr,
            QString::fromStdString(event.text()), mode};
}

std::optional<Received> unpack(const QDBusMessage& message)
{
    if (message.signature() != signature)
        return std::nullopt;
    const QVariantList arguments = message.arguments();
    std::shared_ptr<Vt_Event::Parameters> parameters;
    if (arguments[3].toBool()) {
        parameters = std::make_shared<Vt_Event::Parameters>();
        const auto wire = qdbus_cast<WireParameters>(arguments[2]);
        for (auto parameter = wire.begin(); parameter != wire.end(); ++parameter)
            parameters->emplace(parameter.key().toStdString(), parameter.value().toStdString());
    }
    return Received{Vt_Event(arguments[0].toString().toStdString(), arguments[1].toInt(), std::move(parameters),
                             arguments[4].toString().toStdString()),
                    arguments[5].toInt()};
}

} // namespace EventWire
