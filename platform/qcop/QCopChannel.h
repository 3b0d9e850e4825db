#pragma once

#include "QCString.h"

#include <QObject>

// A named channel between programs: every message sent on its name reaches every open channel of that name, in
// every process, from the event loop.
class QCopChannel : public QObject
{
    Q_OBJECT

public:
    // `channel` is a name like "/Some/Channel". Without a bus, or with a name that is no such path
    // (both are logged), the channel exists but never receives anything.
    explicit QCopChannel(const QCString& channel, QObject* parent = nullptr, const char* name = nullptr);

    // Sends one message. False when there is no bus or the channel's name is no path.
    static bool send(const QCString& channel, const QCString& message, const QByteArray& data = {});

signals:
    void received(const QCString& message, const QByteArray& data);
};
