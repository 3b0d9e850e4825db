#include "EventWire.h"

#include "HostBus.h"

namespace EventWire {

QVariantList pack(const Vt_Event& event, int mode)
{
    HostBus::Texts parameters;
    if (event.parameters())
        for (const auto& [key, value] : *event.parameters())
            parameters.insert(QString::fromStdString(key), QString::fromStdString(value));
    return {QString::fromStdString(event.name()), event.value(),
            QVariant::fromValue(parameters),      event.parameters() != nullptr,
            QString::fromStdString(event.text()), mode};
}

Received unpack(const QVariantList& arguments)
{
    std::shared_ptr<Vt_Event::Parameters> parameters;
    if (arguments[3].toBool()) {
        parameters = std::make_shared<Vt_Event::Parameters>();
        const auto wire = arguments[2].value<HostBus::Texts>();
        for (auto parameter = wire.begin(); parameter != wire.end(); ++parameter)
            parameters->emplace(parameter.key().toStdString(), parameter.value().toStdString());
    }
    return {Vt_Event(arguments[0].toString().toStdString(), arguments[1].toInt(), std::move(parameters),
                     arguments[4].toString().toStdString()),
            arguments[5].toInt()};
}

} // namespace EventWire
