#include "StandInService.h"

#include "NR_Constants.h"
#include "RefreshStatus.h"
#include "SettingHelper.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"

#include <algorithm>
#include <ctime>
#include <limits>

namespace {

constexpr int memoryKilobytes = 680;

void send(const std::string& name, int value = 0,
          std::shared_ptr<const Vt_Event::Parameters> parameters = nullptr)
{
    Vt_EventAndStatusFacade::instance()->sendEvent(Vt_Event(name, value, std::move(parameters)), 0);
}

std::string memoryText(int kilobytes)
{
    return std::to_string(kilobytes) + " K";
}

// The store's numbers end in 2038.
int timeToStore(std::time_t seconds)
{
    return static_cast<int>(std::min<std::time_t>(seconds, std::numeric_limits<int>::max()));
}

} // namespace

StandInService::StandInService(const Plan& plan, Report report)
    : Vt_EventHandler(NR_Constants::EVENT_INITIATE_MANUAL_REFRESH), mPlan(plan), mReport(std::move(report))
{
    Vt_EventAndStatusFacade::instance()->addEventHandler(NR_Constants::EVENT_ABORT_MANUAL_REFRESH, this);
    mStep.setSingleShot(true);
    mStep.setInterval(plan.stepMs);
    connect(&mStep, &QTimer::timeout, this, &StandInService::proceed);
}

StandInService::~StandInService()
{
    if (mStep.isActive())
        cancel();
}

void StandInService::handleEvent(const Vt_Event& event)
{
    const bool isRunning = mStep.isActive();
    if (event.name() == NR_Constants::EVENT_INITIATE_MANUAL_REFRESH) {
        if (isRunning) {
            refuse();
        } else if (mPlan.outcome == Outcome::Queue) {
            refuse();
            emit runOver();
        } else {
            begin();
        }
    } else if (isRunning) {
        cancel();
        emit runOver();
    }
}

void StandInService::begin()
{
    mReport("started", {});
    mDownloading = false;
    send(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_STARTED);
    tellStatus(STATUS_CONNECTING, "connecting");
    mStep.start();
}

void StandInService::proceed()
{
    if (mDownloading && mPlan.outcome == Outcome::DownloadError) {
        finish("FAILED");
        tellStatus(STATUS_DOWNLOAD_FAILED, "download failed");
    } else if (mDownloading) {
        setIntSetting(GROUP_DCD, "RuntimeValues.ItemsDownloaded", mPlan.items);
        setIntSetting(GROUP_DCD, "RuntimeValues.BytesDownloaded", mPlan.bytes);
        finish("SUCCESS");
        tellStatus(STATUS_DONE, "done");
    } else if (mPlan.outcome == Outcome::ConnectError) {
        finish("FAILED");
        tellStatus(STATUS_CONNECT_FAILED, "connection failed");
    } else {
        mDownloading = true;
        tellStatus(STATUS_DOWNLOADING, "downloading");
        mStep.start();
        return;
    }
    emit runOver();
}

void StandInService::refuse()
{
    mReport("refused", {});
    send(NR_Constants::EVENT_NOTIFY_QUEUE_IN_PROGRESS_ERROR);
}

// Who cancelled knows, so there is no status.
void StandInService::cancel()
{
    mStep.stop();
    finish("CANCELLED");
}

// Everything that a page of details shows is up to date before the status that ends the run makes it look.
void StandInService::finish(const char* result)
{
    setIntSetting(GROUP_DCD, "RuntimeValues.LastUpdateTime", timeToStore(mPlan.clock()));
    setStringSetting(GROUP_DCD, "RuntimeValues.LastUpdateResult", result);
    mReport("finished", result);
    tellMemory();
    send(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED);
}

// The content is what the last successful run downloaded.
void StandInService::tellMemory()
{
    const int downloaded = getIntSetting(GROUP_DCD, "RuntimeValues.BytesDownloaded") / 1024;
    const int used = std::clamp(downloaded, 0, memoryKilobytes);
    const auto texts = std::make_shared<Vt_Event::Parameters>();
    (*texts)["total"] = memoryText(memoryKilobytes);
    (*texts)["free"] = memoryText(memoryKilobytes - used);
    (*texts)["used"] = memoryText(used);
    send(NR_Constants::EVENT_NOTIFY_STORAGE_STATUS, 0, texts);
}

void StandInService::tellStatus(int status, const char* meaning)
{
    mReport("status", std::to_string(status) + ", " + meaning);
    send(NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS, status);
}
