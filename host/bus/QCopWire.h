#pragma once

#include <QString>

// How a channel's message travels on the session bus: its text and its data ("say"), at the path that is the
// channel's name.
namespace QCopWire {

inline const QString interface = QStringLiteral("org.vistane.QCop1");
inline const QString signal = QStringLiteral("Received");

} // namespace QCopWire
