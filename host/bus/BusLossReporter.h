#pragma once

#include <QObject>

// Logs that a session bus is gone that was there before.
class BusLossReporter : public QObject
{
    Q_OBJECT

public slots:
    void report();
};
