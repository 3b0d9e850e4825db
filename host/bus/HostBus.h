#pragma once

#include "BusSignals.h"

class QDBusMessage;
class QObject;

// The session bus under all of the platform's messages. Without a bus everything answers false, one log line says so,
// and the program goes on; so it does when the bus goes away.
namespace HostBus {

// To be called before anything asks for the session bus, the application object included. A bus that accepts and then
// does not answer within two seconds would be waited for without end; from here on it counts as none.
void avoidSilentBus();

// Whether there may be a session bus: somebody has said where. Asks nobody, so it is for who would rather go without.
bool hasAddress();

// True when there is a session bus.
bool isConnected();

// Sends one signal to everybody on the bus, the sender included. `path` stands in for the path of a signal that has
// none of its own. False when it could not be queued.
bool send(const BusSignal& signal, const QVariantList& arguments, const QString& path = {});

// The one entrance for what others send. Calls `receive` from the event loop for every such signal, until `context` is
// destroyed; an empty path means every path. One with another signature, or with a larger content than above, is
// refused: `refused` is told, or the log when there is none. False when there is no bus.
bool subscribe(const BusSignal& signal, QObject* context, Receiver receive, RefusedReceiver refused = {});

// Calls a method of another program, which the bus may have to start. Calls `answered` from the event loop with the
// reply or the error, unless `context` is destroyed before: one of the two comes within the given time, without a bus
// the error "Disconnected".
void call(const QDBusMessage& method, int milliseconds, QObject* context,
          std::function<void(const QDBusMessage& answer)> answered);

// This process's own name on the bus; empty when there is none.
QString ownName();

// Calls the receivers of `context` now for all that has come in up to now.
void deliverPending(QObject* context);

// Owns the service's name until the process ends. False when there is no bus, or when another process owns it.
bool ownServiceName();

// Whether anybody owns the service's name.
bool hasService();

// Calls `lost` from the event loop whenever the service's name loses its owner, to another one or with the bus itself,
// until `context` is destroyed.
void onServiceLost(QObject* context, std::function<void()> lost);

// Makes this process the one menu on the bus, until it ends. Until `context` is destroyed, `raise` is called from the
// event loop when somebody wants it in front, with the token that the compositor may want to see. False when another
// process is the menu already, which has then been asked to come to the front; true, too, when there is no bus.
bool beOnlyMenu(QObject* context, std::function<void(const QByteArray& token)> raise);

// Calls `slot` of `receiver` (as in SLOT(), without arguments) when a bus that was there goes away, until the
// receiver is destroyed. False when there is no bus. The log says that it is gone by itself.
bool onLost(QObject* receiver, const char* slot);

// Waits until the bus has taken everything sent so far, and has set up every subscription; a program that
// ends right after sending loses the signal without it. False when there is no bus.
bool flush();

} // namespace HostBus
