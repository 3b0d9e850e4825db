#pragma once

#include <QObject>
#include <QStringList>

// Tells that something was written to the store, by this process or another: the service core's one message after every
// commit. Without a bus, only of this process. What the modem tells counts like a write, which each process hears for itself.
class StoreChanges : public QObject
{
    Q_OBJECT

public:
    // From the first call on, all processes are told of what this one writes. A program that only writes, and then ends, has
    // to call flush() before, which waits until the bus has taken what there was to tell.
    static void announce();
    static void flush();

    // Announces, and listens. Lives as long as the process.
    static StoreChanges* instance();

signals:
    // From the event loop, after the commit. The names of what was written: a setting's group, a dot and its key, "device."
    // and a fact, "channels", "profiles". None stands for everything.
    void changed(const QStringList& names);

private:
    StoreChanges();
};
