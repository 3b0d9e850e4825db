#pragma once

#include "ModemDaemon.h"

#include <vector>

// ModemManager. Of several modems the first one whose SIM card tells an identity counts.
class ModemManagerDaemon : public ModemDaemon
{
    Q_OBJECT

public:
    explicit ModemManagerDaemon(const QDBusConnection& bus);

private:
    struct Modem;

    void read() override;
    void readSim(const std::vector<Modem>& modems, size_t number);
};
