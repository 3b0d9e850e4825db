#include "RefreshWatch.h"

#include "NR_Constants.h"
#include "RefreshStatus.h"
#include "Vt_Event.h"

int RefreshWatch::patience = 1000;

RefreshWatch::RefreshWatch(std::function<void()> giveUp)
{
    mTimer.setSingleShot(true);
    mTimer.callOnTimeout([this, giveUp = std::move(giveUp)] {
        mIsOn = false;
        giveUp();
    });
}

void RefreshWatch::sent(const Vt_Event& event, bool hasService)
{
    const bool isInitiation = event.name() == NR_Constants::EVENT_INITIATE_MANUAL_REFRESH;
    if (!isInitiation && event.name() != NR_Constants::EVENT_ABORT_MANUAL_REFRESH)
        return;
    mIsOn = isInitiation;
    mTimer.stop();
    if (mIsOn && !hasService)
        mTimer.start(patience);
}

// Whoever reports is a service, though he may not own the name of one.
void RefreshWatch::received(const Vt_Event& event)
{
    const bool isReport = event.name() == NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS;
    if (!isReport && event.name() != NR_Constants::EVENT_NOTIFY_QUEUE_IN_PROGRESS_ERROR)
        return;
    mTimer.stop();
    const int status = event.value();
    if (!isReport || status == STATUS_CONNECT_FAILED || status == STATUS_DOWNLOAD_FAILED ||
        status == STATUS_DONE)
        mIsOn = false;
}

void RefreshWatch::serviceLost()
{
    if (mIsOn)
        mTimer.start(patience);
}
