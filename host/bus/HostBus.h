#pragma once

#include <QVariantList>

class QObject;
class QString;

// The session bus under all of the platform's messages: signals only, no name owned. Without a bus everything
// answers false, one log line says so, and the program goes on; so it does when the bus goes away.
namespace HostBus {

// True when there is a session bus.
bool isConnected();

// Sends one signal to everybody on the bus, the sender included. False when it could not be queued.
bool send(const QString& path, const QString& interface, const QString& signal, const QVariantList& arguments);

// Calls `slot` of `receiver` (as in SLOT()), whose arguments are the signal's, for every such signal until the
// receiver is destroyed. An empty path means every path. False when there is no bus.
bool subscribe(const QString& path, const QString& interface, const QString& signal, QObject* receiver,
               const char* slot);

// Calls `slot` of `receiver` (as in SLOT(), without arguments) when a bus that was there goes away, until the
// receiver is destroyed. False when there is no bus. The log says that it is gone by itself.
bool onLost(QObject* receiver, const char* slot);

// Waits until the bus has taken everything sent so far, and has set up every subscription; a program that
// ends right after sending loses the signal without it. False when there is no bus.
bool flush();

} // namespace HostBus
