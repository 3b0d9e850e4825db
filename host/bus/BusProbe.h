#pragma once

#include <QByteArray>

// Whether the session bus at `address`, as in DBUS_SESSION_BUS_ADDRESS, can be used within `milliseconds`: it takes a
// connection and answers the greeting of a client. True also for an address of which that can't be said: one that is
// not a socket of this machine.
bool isBusAnswering(const QByteArray& address, int milliseconds);
