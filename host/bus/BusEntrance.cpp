#include "BusEntrance.h"

#include "Log.h"

#include <QDBusArgument>

#include <algorithm>

namespace {

const Log logger("HostBus");

// A container that Qt leaves unread becomes what its users know.
QVariant plain(const QVariant& argument)
{
    if (argument.userType() != qMetaTypeId<QDBusArgument>())
        return argument;
    return QVariant::fromValue(qdbus_cast<HostBus::Texts>(argument));
}

bool isSmall(const QVariant& argument)
{
    const auto fits = [](const auto& text) { return text.size() <= HostBus::largestText; };
    switch (argument.typeId()) {
    case QMetaType::QString:
        return fits(argument.toString());
    case QMetaType::QByteArray:
        return fits(argument.toByteArray());
    case QMetaType::QStringList: {
        const QStringList list = argument.toStringList();
        return list.size() <= HostBus::mostElements && std::all_of(list.begin(), list.end(), fits);
    }
    default:
        break;
    }
    if (argument.userType() != qMetaTypeId<HostBus::Texts>())
        return true;
    const auto texts = argument.value<HostBus::Texts>();
    return texts.size() <= HostBus::mostElements && std::all_of(texts.keyBegin(), texts.keyEnd(), fits) &&
           std::all_of(texts.begin(), texts.end(), fits);
}

} // namespace

void BusEntrance::receive(const QDBusMessage& message)
{
    if (message.signature() != mSignal.signature)
        return refuse(message, "its arguments are others");
    HostBus::Message content = {message.path(), {}, mMayBeService(message.service())};
    for (const QVariant& argument : message.arguments())
        content.arguments.push_back(plain(argument));
    if (mSignal.isBounded && !std::all_of(content.arguments.begin(), content.arguments.end(), isSmall))
        return refuse(message, "it is too large");
    mReceive(content);
}

void BusEntrance::refuse(const QDBusMessage& message, const char* reason) const
{
    if (mRefused)
        return mRefused({message.path(), message.interface(), message.member(), message.signature(), reason});
    logger(3, "%s of %s is refused: %s", qUtf8Printable(message.member()), qUtf8Printable(message.service()),
           reason);
}

bool BusWatch::mayBeService(const QString& sender) const
{
    return mServiceOwner.isEmpty() || sender == mServiceOwner || sender == mOwnName;
}

void BusWatch::reportLoss()
{
    logger(3, "the session bus is gone");
    setServiceOwner({});
}

// Whoever has the name next knows nothing of what went on.
void BusWatch::setServiceOwner(const QString& owner)
{
    const bool had = hasService();
    mServiceOwner = owner;
    if (had)
        emit serviceLost();
}

// Only the bus itself can send in its own name.
void BusWatch::changeOwner(const QDBusMessage& message)
{
    const QVariantList arguments = message.arguments();
    if (message.service() == QLatin1String("org.freedesktop.DBus") &&
        message.signature() == QLatin1String("sss") && arguments[0] == BusSignals::service)
        setServiceOwner(arguments[2].toString());
}
