#pragma once

#include "Vt_EventHandler.h"

#include <QObject>
#include <QTimer>

#include <ctime>
#include <functional>
#include <string>

// Stands in for the headlines service where a refresh by hand is concerned: answers the request step by step,
// keeps the figures and the last result in the settings, and tells of the update and of the memory in use, all
// as the service would. While nobody refreshes it does nothing at all.
class StandInService : public QObject, public Vt_EventHandler
{
    Q_OBJECT

public:
    enum class Outcome { Success, ConnectError, DownloadError, Queue };

    struct Plan
    {
        Outcome outcome = Outcome::Success;
        int stepMs = 1000; // from one status to the next
        int items = 12;    // what a successful run downloads
        int bytes = 34816;
        std::time_t (*clock)() = [] { return std::time(nullptr); };
    };

    // Gets a word for each thing that is done, and details that may be empty.
    using Report = std::function<void(const std::string& what, const std::string& details)>;

    StandInService(const Plan& plan, Report report);
    // A run that is on is cancelled.
    ~StandInService() override;

    void handleEvent(const Vt_Event& event) override;

signals:
    // A run, or the refusal of one by the plan, is over; the last event of it is on its way.
    void runOver();

private:
    void begin();
    void proceed();
    void refuse();
    void cancel();
    void finish(const char* result);
    void tellMemory();
    void tellStatus(int status, const char* meaning);

    const Plan mPlan;
    const Report mReport;
    QTimer mStep;
    bool mDownloading = false;
};
