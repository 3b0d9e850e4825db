#pragma once

#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>

// The running program as others see it on the bus: org.freedesktop.Application at /org/vistane/Menu. Starting the
// program again, or choosing it in a list of applications, asks this one to come to the front.
class BusActivation : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    // The token is what a compositor wants to see of who asks to come to the front; empty when there is none.
    using Raise = std::function<void(const QByteArray& token)>;

    BusActivation(Raise raise, QObject* parent) : QObject(parent), mRaise(std::move(raise)) {}

public slots:
    Q_SCRIPTABLE void Activate(const QVariantMap& platform);
    // There are no files and no actions of the program's own.
    Q_SCRIPTABLE void Open(const QStringList& uris, const QVariantMap& platform);
    Q_SCRIPTABLE void ActivateAction(const QString& action, const QVariantList& parameter,
                                     const QVariantMap& platform);

private:
    const Raise mRaise;
};
