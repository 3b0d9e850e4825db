#pragma once

#include "ModemDaemon.h"

#include <vector>

// oFono. Of several modems the first one whose SIM card tells an identity counts.
class OfonoDaemon : public ModemDaemon
{
    Q_OBJECT

public:
    explicit OfonoDaemon(const QDBusConnection& bus);

private:
    struct Modem
    {
        QString path;
        bool hasNetwork;
    };

    void read() override;
    void readSim(const std::vector<Modem>& modems, size_t number);
    void readNetwork(const QString& path, const Subscriber& known);
};
