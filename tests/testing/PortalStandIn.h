#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

#include <gtest/gtest.h>

// Stands in for the desktop portal while it lives, unless it is told to be "absent". Asked to open a link, it takes its
// steps, divided by blanks.
class PortalStandIn : public QDBusVirtualObject
{
public:
    explicit PortalStandIn(const std::string& steps) : mSteps(QString::fromStdString(steps).split(' '))
    {
        mBus.registerVirtualObject("/org/freedesktop/portal/desktop", this);
        EXPECT_TRUE(steps == "absent" || mBus.registerService("org.freedesktop.portal.Desktop"));
    }
    ~PortalStandIn() override
    {
        if (mBus.isConnected()) // waits for the bus, so that the next one finds the name free
            mBus.unregisterService("org.freedesktop.portal.Desktop");
        leave();
    }

    QString asked; // the link

private:
    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& call, const QDBusConnection&) override
    {
        asked = call.arguments().value(1).toString();
        mHandle = "/org/freedesktop/portal/desktop/request/" + call.service().mid(1).replace('.', '_') + '/' +
                  qdbus_cast<QVariantMap>(call.arguments().value(2))["handle_token"].toString();
        for (const QString& step : mSteps)
            take(step.section(':', 0, 0), step.section(':', 1), call);
        return true;
    }

    void take(const QString& step, const QString& value, const QDBusMessage& call)
    {
        if (step == "reply")
            mBus.send(call.createReply(QVariant::fromValue(QDBusObjectPath(mHandle + value))));
        else if (step == "misreply")
            mBus.send(call.createReply(mMega));
        else if (step == "error")
            mBus.send(call.createErrorReply(value, mMega));
        else if (step == "die")
            leave();
        else if (step == "misrespond")
            respond(mBus, {mMega});
        else if (step == "stranger")
            respond(QDBusConnection::connectToBus(QDBusConnection::SessionBus, step), {0u, QVariantMap()});
        else if (step == "respond")
            respond(mBus, {value.toUInt(), QVariantMap{{mMega, mMega}, {"n", 1}}});
        for (int i = 0; step == "flood" && i < 1000; ++i)
            respond(mBus, {value.toUInt(), QVariantMap()});
    }

    void respond(const QDBusConnection& sender, const QVariantList& arguments) const
    {
        QDBusMessage response =
            QDBusMessage::createSignal(mHandle, "org.freedesktop.portal.Request", "Response");
        response.setArguments(arguments);
        sender.send(response);
    }

    void leave()
    {
        QDBusConnection::disconnectFromBus("portal");
        mBus = QDBusConnection(QString());
    }

    const QStringList mSteps;
    const QString mMega = QString(1 << 20, 'x');
    QDBusConnection mBus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "portal");
    QString mHandle;
};
