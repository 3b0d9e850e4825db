#include "BusListener.h"

#include "HostBus.h"

#include <QTest>

#include <gtest/gtest.h>

#include <utility>

BusListener::BusListener(const char* path, const char* interface, const char* signal)
    : mPath(path), mInterface(interface), mSignal(signal)
{
    EXPECT_TRUE(HostBus::subscribe(mPath, mInterface, mSignal, this, SLOT(receive(QDBusMessage))));
    HostBus::flush();
}

std::vector<std::string> BusListener::take()
{
    // Signals come in the order in which they were sent, so a last one of our own says that all are here.
    HostBus::send(mPath, mInterface, mSignal, {"the end"});
    EXPECT_TRUE(QTest::qWaitFor([this] { return !mHeard.empty() && mHeard.back() == "the end"; }));
    if (!mHeard.empty())
        mHeard.pop_back();
    return std::exchange(mHeard, {});
}

void BusListener::receive(const QDBusMessage& message)
{
    QStringList words;
    for (const QVariant& argument : message.arguments()) {
        if (argument.typeId() == QMetaType::QStringList)
            words += argument.toStringList();
        else
            words += argument.toString();
    }
    mHeard.push_back(words.join(u'|').toStdString());
}
