#pragma once

#include <QObject>

#include <string>
#include <vector>

// Hears what the platform is asked for while it lives. Needs the session bus.
class PlatformRequests : public QObject
{
    Q_OBJECT

public:
    PlatformRequests();

    // The requests since the last call, each as "operation|argument|argument...".
    std::vector<std::string> take();

private slots:
    void request(const QString& operation, const QStringList& arguments);

private:
    std::vector<std::string> mRequests;
};
