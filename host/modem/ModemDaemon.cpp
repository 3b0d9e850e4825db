#include "ModemDaemon.h"

#include <QCoreApplication>
#include <QDBusArgument>

#include <algorithm>

namespace {

constexpr int patienceMs = 10'000; // that a service may take to answer; nobody waits meanwhile
constexpr int pauseMs = 50;

const QString busName = QStringLiteral("org.freedesktop.DBus");

} // namespace

ModemDaemon::ModemDaemon(const Kind& kind, const QDBusConnection& bus) : mKind(kind), mBus(bus)
{
    mPause.setSingleShot(true);
    mPause.setInterval(pauseMs);
    connect(&mPause, &QTimer::timeout, this, &ModemDaemon::begin);
}

// Only who owns the name is asked, by his own name on the bus: nobody is started for it, and when he goes, the call
// comes back at once.
void ModemDaemon::start(const QDeadlineTimer& end)
{
    mEnd = end;
    const QString name = QLatin1String(mKind.name);
    mBus.connect(QString(), QString(), busName, QStringLiteral("NameOwnerChanged"), {name}, QString(), this,
                 SLOT(changeOwner(QDBusMessage)));
    QDBusMessage call = QDBusMessage::createMethodCall(busName, QStringLiteral("/org/freedesktop/DBus"),
                                                       busName, QStringLiteral("GetNameOwner"));
    call.setArguments({name});
    const QDBusMessage owner = mBus.call(call, QDBus::Block, static_cast<int>(end.remainingTime()));
    if (owner.type() == QDBusMessage::ReplyMessage)
        setOwner(owner.arguments().value(0).toString());
    mEnd.setRemainingTime(0);
}

// A question may come while no event loop runs, so what has come in is dealt with here.
const ModemDaemon::Facts& ModemDaemon::facts()
{
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    if (mIsDue && !mReads)
        begin();
    return mFacts;
}

void ModemDaemon::ask(const QString& path, const char* interface, const char* method, const char* signature,
                      Then then, const QVariantList& arguments)
{
    mThen = std::move(then);
    mSignature = signature;
    QDBusMessage call =
        QDBusMessage::createMethodCall(mOwner, path, QLatin1String(interface), QLatin1String(method));
    call.setArguments(arguments);
    if (mEnd.hasExpired()) {
        if (!mBus.callWithCallback(call, this, SLOT(answer(QDBusMessage)), SLOT(fail(QDBusError)), patienceMs))
            end(true);
        return;
    }
    const QDBusMessage message = mBus.call(call, QDBus::Block, static_cast<int>(mEnd.remainingTime()));
    if (message.type() == QDBusMessage::ReplyMessage)
        answer(message);
    else
        fail(QDBusError(message));
}

void ModemDaemon::know(const Subscriber& subscriber)
{
    setFacts(subscriber.facts());
    end(mIsDue);
}

void ModemDaemon::setFacts(Facts facts)
{
    mFacts.swap(facts);
    if (mFacts != facts)
        emit changed();
}

// Only the bus itself can send in its own name.
void ModemDaemon::changeOwner(const QDBusMessage& message)
{
    if (message.service() == busName && message.signature() == QLatin1String("sss"))
        setOwner(message.arguments()[2].toString());
}

void ModemDaemon::notice(const QDBusMessage& message)
{
    if (message.service() == mOwner && isOfInterest(message))
        readSoon();
}

void ModemDaemon::answer(const QDBusMessage& message)
{
    if (message.service() == mOwner && message.signature() == QLatin1String(mSignature))
        return std::exchange(mThen, nullptr)(message.arguments()[0]);
    if (message.service() == mOwner)
        logOnce(mKind.name + std::string(" is refused: its answer has another signature"));
    end(true);
}

void ModemDaemon::fail(const QDBusError& error)
{
    if (!mOwner.isEmpty())
        logOnce(mKind.name + std::string(" does not answer: ") +
                QDBusError::errorString(error.type()).toStdString());
    end(true);
}

void ModemDaemon::setOwner(const QString& owner)
{
    mOwner = owner;
    setFacts({});
    mIsDue = !owner.isEmpty();
    if (owner.isEmpty())
        return mPause.stop();
    logOnce(mKind.name + std::string(" is there"));
    follow();
    if (!mReads)
        begin();
}

// From now on, whoever has the name: who asks what it signals is compared in notice(). Without a daemon the bus has
// nothing to do for us.
void ModemDaemon::follow()
{
    if (std::exchange(mFollows, true))
        return;
    for (const Notice& one : mKind.notices)
        mBus.connect(QString(), QLatin1String(one.path), QLatin1String(one.interface),
                     QLatin1String(one.member),
                     one.about ? QStringList(QLatin1String(one.about)) : QStringList(), QString(), this,
                     SLOT(notice(QDBusMessage)));
}

// Of properties that change together, some matter to nobody here, as the strength of the signal.
bool ModemDaemon::isOfInterest(const QDBusMessage& message) const
{
    if (message.signature() != QLatin1String("sa{sv}as"))
        return true;
    const QStringList names =
        qdbus_cast<QVariantMap>(message.arguments()[1]).keys() + message.arguments()[2].toStringList();
    const auto isNamed = [&](const char* property) { return names.contains(QLatin1String(property)); };
    return std::any_of(mKind.fields.begin(), mKind.fields.end(),
                       [&](const SubscriberField& field) { return isNamed(field.property); }) ||
           std::any_of(mKind.others.begin(), mKind.others.end(), isNamed);
}

void ModemDaemon::readSoon()
{
    mIsDue = true;
    if (!mReads && !mPause.isActive())
        mPause.start();
}

void ModemDaemon::begin()
{
    mPause.stop();
    mIsDue = false;
    mReads = true;
    read();
}

void ModemDaemon::end(bool isDue)
{
    const bool hasChanged = std::exchange(mIsDue, isDue && !mOwner.isEmpty());
    mReads = false;
    if (hasChanged && mIsDue)
        mPause.start();
}
