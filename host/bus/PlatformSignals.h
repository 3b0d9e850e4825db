#pragma once

#include <QString>

// The signals of the phone's platform on the bus.
namespace PlatformSignals {

inline const QString path = QStringLiteral("/Vistane/Platform");
inline const QString busInterface = QStringLiteral("org.vistane.Platform1");

// A request to other applications: operation, arguments as text ("sas").
inline const QString request = QStringLiteral("Request");
// Applications are to return to the idle screen: reason ("i").
inline const QString returnToIdle = QStringLiteral("ReturnToIdle");

} // namespace PlatformSignals
