#pragma once

#include <QByteArray>

// Whether nobody who asks for the session bus at `addresses`, as in DBUS_SESSION_BUS_ADDRESS, has to wait for longer than
// `milliseconds`: the first socket of this machine that takes a connection answers the greeting of a client, or none of
// them takes one. Of an address of another kind that can't be said, so it counts as one that
// keeps silent.
bool isBusAnswering(const QByteArray& addresses, int milliseconds);
