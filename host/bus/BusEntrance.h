#pragma once

#include "BusSignals.h"

#include <QDBusMessage>
#include <QObject>

// Lets the messages of one signal in, or refuses them. Its slot takes the message as it came: a slot with arguments of
// its own would abort the program when a stranger sends others.
class BusEntrance : public QObject
{
    Q_OBJECT

public:
    using MayBeService = bool (*)(const QString& sender);

    BusEntrance(const BusSignal& signal, HostBus::Receiver receive, HostBus::RefusedReceiver refused,
                MayBeService mayBeService, QObject* parent)
        : QObject(parent),
          mSignal(signal),
          mReceive(std::move(receive)),
          mRefused(std::move(refused)),
          mMayBeService(mayBeService)
    {
    }

public slots:
    void receive(const QDBusMessage& message);

private:
    void refuse(const QDBusMessage& message, const char* reason) const;

    const BusSignal mSignal;
    const HostBus::Receiver mReceive;
    const HostBus::RefusedReceiver mRefused;
    const MayBeService mMayBeService;
};

// Follows the bus itself: whether it is there, and who owns the service's name.
class BusWatch : public QObject
{
    Q_OBJECT

public:
    // Whether a message of this sender may come from the service.
    bool mayBeService(const QString& sender) const;

    bool hasService() const { return !mServiceOwner.isEmpty(); }
    void setServiceOwner(const QString& owner);
    void setOwnName(const QString& name) { mOwnName = name; }

signals:
    void serviceLost();

public slots:
    void reportLoss();
    void changeOwner(const QDBusMessage& message);

private:
    QString mServiceOwner; // empty when nobody is
    QString mOwnName;
};
