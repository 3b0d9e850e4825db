#pragma once

#include <QDBusMessage>
#include <QObject>

#include <string>
#include <vector>

// Hears one signal of the session bus, whoever sends it, while it lives.
class BusListener : public QObject
{
    Q_OBJECT

public:
    BusListener(const char* path, const char* interface, const char* signal);

    // What was sent up to now and since the last call, each as "argument|argument|...".
    std::vector<std::string> take();

private slots:
    void receive(const QDBusMessage& message);

private:
    const QString mPath, mInterface, mSignal;
    std::vector<std::string> mHeard;
};
