#pragma once

#include "Subscriber.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

// A modem service on the system bus, and what it knows. A signal of its only says that something has changed; what, is
// asked anew, so there is one way in for everything it tells.
//
// The calls are plain messages, and what answers them is compared with the signature that was promised before anybody
// reads it: generated proxies would convert, or wait, where the other side answers otherwise.
class ModemDaemon : public QObject
{
    Q_OBJECT

public:
    // A signal that tells of a change. Null means any path, or any first argument.
    struct Notice
    {
        const char* path;
        const char* interface;
        const char* member;
        const char* about;
    };

    // All of them live as long as the program.
    struct Kind
    {
        const char* name; // on the bus
        std::span<const Notice> notices;
        std::span<const SubscriberField> fields;
        std::span<const char* const> others; // the names of the other properties that count
    };

    // `bus` must be connected. start() begins to follow the service, and waits until `end` for what it knows.
    ModemDaemon(const Kind& kind, const QDBusConnection& bus);
    void start(const QDeadlineTimer& end);

    using Facts = std::map<std::string, std::string, std::less<>>;
    // As of all that has come in up to now. Empty when the service is not there or knows no subscriber.
    const Facts& facts();

signals:
    void changed(); // the facts

protected:
    // Asks for everything by ask(), one after the other, and ends with know().
    virtual void read() = 0;
    // Calls a method, and then `then` with the one argument of the answer, which has this signature. Where there is no
    // such answer, what was known stays until the next question or signal, by which everything is asked anew.
    using Then = std::function<void(const QVariant& argument)>;
    void ask(const QString& path, const char* interface, const char* method, const char* signature, Then then,
             const QVariantList& arguments = {});
    void know(const Subscriber& subscriber);

private slots:
    void changeOwner(const QDBusMessage& message);
    void notice(const QDBusMessage& message);
    void answer(const QDBusMessage& message);
    void fail(const QDBusError& error);

private:
    void setOwner(const QString& owner);
    void setFacts(Facts facts);
    void follow();
    bool isOfInterest(const QDBusMessage& message) const;
    void readSoon();
    void begin();
    void end(bool isDue);

    const Kind mKind;
    QDBusConnection mBus;
    QDeadlineTimer mEnd{0}; // until then answers are waited for
    QString mOwner;         // the service's own name on the bus; empty when it is not there
    bool mFollows = false;
    bool mReads = false;
    bool mIsDue = false; // something has changed since
    QTimer mPause;       // of a change, much is signalled at once
    Then mThen;          // what is done with the one answer that is awaited
    QByteArray mSignature;
    Facts mFacts;
};
