#pragma once

#include <QObject>

class QDBusMessage;

// Prints what goes over the bus, one line each, as it happens.
class Watcher : public QObject
{
    Q_OBJECT

public:
    explicit Watcher(bool json) : mJson(json) {}

    // Returns once nothing that is sent from now on can be missed; false when there is no bus. The
    // application quits when the bus goes away.
    bool start();

private slots:
    void showEvent(const QDBusMessage& message);
    void showChannel(const QDBusMessage& message);
    void showRequest(const QDBusMessage& message);
    void showIdle(const QDBusMessage& message);

private:
    // Texts of one line, and the same for machines.
    void print(const QStringList& columns, const QJsonObject& object) const;
    void printUnknown(const QDBusMessage& message) const;

    bool mJson;
};
