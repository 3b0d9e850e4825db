#pragma once

#include "HostBus.h"

#include <QObject>

// Prints what goes over the bus, one line each, as it happens.
class Watcher : public QObject
{
public:
    explicit Watcher(bool json) : mJson(json) {}

    // Returns once nothing that is sent from now on can be missed; false when there is no bus. The
    // application quits when the bus goes away.
    bool start();

private:
    void showEvent(const HostBus::Message& message) const;
    void showChannel(const HostBus::Message& message) const;
    void showRequest(const HostBus::Message& message) const;
    void showRefused(const HostBus::Message& message) const;
    void showIdle(const HostBus::Message& message) const;
    void showChanged(const HostBus::Message& message) const;
    // Texts of one line, and the same for machines.
    void print(const QStringList& columns, const QJsonObject& object) const;
    void printUnknown(const HostBus::Refused& refused) const;

    bool mJson;
};
