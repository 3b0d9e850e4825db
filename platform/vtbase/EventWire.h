#pragma once

#include "Vt_Event.h"

#include <QString>
#include <QVariantList>

#include <optional>

class QDBusMessage;

// How an event travels on the session bus.
namespace EventWire {

inline const QString path = QStringLiteral("/Vistane/Events");
inline const QString interface = QStringLiteral("org.vistane.Core1");
inline const QString signal = QStringLiteral("Event");

struct Received
{
    Vt_Event event;
    int mode; // the second argument of sendEvent
};

QVariantList pack(const Vt_Event& event, int mode);

// Nothing when the signal's arguments are not those of an event.
std::optional<Received> unpack(const QDBusMessage& message);

} // namespace EventWire
