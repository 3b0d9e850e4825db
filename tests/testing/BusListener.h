#pragma once

#include "HostBus.h"

#include <QObject>
#include <QStringList>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

// Hears one signal of the session bus, whoever sends it, while it lives.
class BusListener : public QObject
{
public:
    explicit BusListener(const BusSignal& signal)
    {
        EXPECT_TRUE(HostBus::subscribe(signal, this, [this](const HostBus::Message& message) {
            QStringList words;
            for (const QVariant& argument : message.arguments)
                words += argument.typeId() == QMetaType::QStringList ? argument.toStringList()
                                                                     : QStringList(argument.toString());
            mHeard.push_back(words.join(u'|').toStdString());
        }));
        HostBus::flush();
    }

    // What was sent up to now and since the last call, each as "argument|argument|...".
    std::vector<std::string> take()
    {
        HostBus::flush();
        HostBus::deliverPending(this);
        return std::exchange(mHeard, {});
    }

private:
    std::vector<std::string> mHeard;
};
