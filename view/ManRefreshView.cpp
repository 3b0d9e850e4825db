#include "ManRefreshView.h"

#include "Log.h"
#include "NR_Constants.h"
#include "SettingHelper.h"
#include "UApplication.h"
#include "UKeyObject.h"
#include "UMessageDlg.h"
#include "UNoticeDlg.h"
#include "UProgressDlg.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"

#include <QPointer>
#include <QRegularExpression>
#include <QThread>
#include <QTimerEvent>

#include <utility>

namespace {

const Log logger("ManRefreshView");

// A service that reports in a storm must not pile up timers, nor notices in each other's event loops. What has no room
// waits: no state that ends a run is lost, and every notice is closed by a person.
constexpr size_t maxTimers = 16;
constexpr size_t maxNotices = 8;

bool isProgress(RefreshState state)
{
    return state == RefreshState::CONNECTING || state == RefreshState::DOWNLOADING;
}

bool isNotice(RefreshState state)
{
    return state == RefreshState::DOWN_SUCCESS || state == RefreshState::QUEUE_ERROR;
}

// Of progress that waits, only the last is news.
void append(std::deque<RefreshState>& queue, RefreshState state)
{
    if (!queue.empty() && isProgress(queue.back()) && isProgress(state))
        queue.back() = state;
    else
        queue.push_back(state);
}

QString menuText(const char* key)
{
    return QString::fromUtf8(getStringSetting(GROUP_MENU, key));
}

// Fills the placeholder with the smallest number. An operator's text may have none, of which Qt would complain.
QString filled(const QString& text, int value)
{
    static const QRegularExpression placeholder(QStringLiteral("%L?[0-9]"));
    return text.contains(placeholder) ? text.arg(value, 0, 10) : text;
}

void send(const Vt_Event& event)
{
    Vt_EventAndStatusFacade::instance()->sendEvent(event, 0);
}

} // namespace

unsigned ManRefreshView::retryPause = 2;

ManRefreshView* ManRefreshView::instance()
{
    static auto* view = new ManRefreshView;
    return view;
}

ManRefreshView::ManRefreshView() : Vt_EventHandler(NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS)
{
    Vt_EventAndStatusFacade::instance()->addEventHandler(NR_Constants::EVENT_NOTIFY_QUEUE_IN_PROGRESS_ERROR,
                                                         this);
}

ManRefreshView::~ManRefreshView()
{
    deleteProgressDlg();
    deleteMsgDlg();
    delete mpKeyObj;
    for (UNoticeDlg* notice : mNotices)
        notice->close(false);
    auto* facade = Vt_EventAndStatusFacade::instance();
    facade->removeEventHandler(NR_Constants::EVENT_NOTIFY_QUEUE_IN_PROGRESS_ERROR, this);
    facade->removeEventHandler(NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS, this);
}

void ManRefreshView::handleEvent(const Vt_Event& event)
{
    logger(7, "[ManRefreshView] Incoming VtEvent of type %s, isHide: %d ...", event.name().c_str(), isHide);
    if (event.name() == NR_Constants::EVENT_INITIATE_MANUAL_REFRESH) {
        advance(RefreshCause::INITIATED);
    } else if (event.name() == NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS) {
        logger(7, "[ManRefreshView] Notify status: %d, state: %d", event.value(), static_cast<int>(mState));
        advance(causeOf(event.value()));
    } else if (event.name() == NR_Constants::EVENT_NOTIFY_QUEUE_IN_PROGRESS_ERROR) {
        advance(RefreshCause::REFUSED);
    }
}

void ManRefreshView::advance(RefreshCause cause)
{
    const std::optional<State> state = stateAfter(mState, cause);
    if (!state)
        return;
    mState = *state;
    // Of the service's reports, only that it downloads leaves a hidden run hidden.
    const bool isReport = cause != RefreshCause::INITIATED && cause != RefreshCause::REFUSED;
    isHide = isHide && !(isReport && cause != RefreshCause::DOWNLOADING);
    scheduleDlg(mState);
}

void ManRefreshView::scheduleDlg(State state)
{
    if (isHide)
        return;
    append(mWaiting, state);
    startTimers();
    if (state == State::CONNECTING)
        UApplication::instance()->wakeUpGuiThread();
}

void ManRefreshView::startTimers()
{
    for (; !mWaiting.empty() && mTimerStates.size() < maxTimers; mWaiting.pop_front())
        if (const int timer = startTimer(0); timer > 0)
            mTimerStates[timer] = mWaiting.front();
}

// Timers fire in the order of their start. The dialog may run an event loop in which further timers fire, so this one is
// forgotten first.
void ManRefreshView::timerEvent(QTimerEvent* event)
{
    killTimer(event->timerId());
    if (event->timerId() == mDueTimer) {
        mDueTimer = 0;
        return showDue();
    }
    const auto waiting = mTimerStates.find(event->timerId());
    if (waiting == mTimerStates.end()) {
        logger(8, "timerid not found:%d", event->timerId());
        return;
    }
    append(mDue, waiting->second);
    mTimerStates.erase(waiting);
    startTimers();
    showDue();
}

// Shows the first of the states that are due, unless that is one notice too many: then it, and what came after it,
// stays until one is closed.
void ManRefreshView::showDue()
{
    if (mDue.empty() || (isNotice(mDue.front()) && mNotices.size() >= maxNotices))
        return;
    const State state = mDue.front();
    mDue.pop_front();
    showDueLater();
    showDlg(state);
}

void ManRefreshView::showDueLater()
{
    if (!mDue.empty() && mDueTimer == 0)
        mDueTimer = startTimer(0);
}

void ManRefreshView::showDlg(State state)
{
    deleteProgressDlg();
    if ((state == State::DOWN_ERROR && mDownErr) || (state == State::CONN_ERROR && mConnErr)) {
        logger(7, "[ManRefresh] state == DOWN_ERROR && mDownErr || state == CONN_ERROR && mConnErr");
        return;
    }
    switch (state) {
    case State::CONNECTING:
    case State::DOWNLOADING:
        showProgressDlg(state);
        break;
    case State::DOWN_SUCCESS:
        showSuccessNotice();
        break;
    default:
        showErrDlg(state);
        break;
    }
}

void ManRefreshView::showProgressDlg(State state)
{
    const bool connecting = state == State::CONNECTING;
    const QString caption = menuText("ManRefresh.Option.Refresh");
    const QString text = menuText(connecting ? "ManRefresh.Instruction.ConnectingToServer"
                                             : "ManRefresh.Instruction.DownloadingStories");
    mpProgressDlg = new UProgressDlg(caption, text, 100, 200, nullptr, nullptr, false, 0);
    connect(mpProgressDlg, SIGNAL(cancelled()), this, SLOT(rightSoftKey()));
    connect(mpProgressDlg, SIGNAL(leftSoftkeyClicked()), this, SLOT(leftSoftKey()));
    mpProgressDlg->setProgress(connecting ? 0 : 50);
    mpProgressDlg->show();
}

void ManRefreshView::showSuccessNotice()
{
    const int items = getIntSetting(GROUP_DCD, "RuntimeValues.ItemsDownloaded");
    const int bytes = getIntSetting(GROUP_DCD, "RuntimeValues.BytesDownloaded");
    QString text = filled(filled(menuText("ManRefresh.Instruction.DownloadSuccessed"), items), bytes / 1024);
    // The stored texts carry their line breaks as these two characters.
    text.replace(QStringLiteral("\\n"), QStringLiteral("\n"));
    UNoticeDlg notice(0, text, QString(), nullptr, nullptr, true, 0, true);
    if (runNotice(notice))
        emit finish();
}

void ManRefreshView::showErrDlg(State state)
{
    emit finish();
    logger(7, "ManRefreshView::showErrDlg, state is %d", static_cast<int>(state));
    if (state == State::CONN_ERROR || state == State::DOWN_ERROR) {
        showRetryDlg(state);
    } else if (state == State::QUEUE_ERROR) {
        UNoticeDlg notice(1, 0, menuText("Error.QueueErr"), QString(), nullptr, nullptr, true, 0);
        runNotice(notice);
    }
}

void ManRefreshView::showRetryDlg(State state)
{
    if (mpMsgDlg) {
        logger(7, "ManRefreshView::showErrDlg, mpMsgDlg != NULL");
        return;
    }
    const QString caption = menuText("ManRefresh.Instruction.ServerError");
    const QString text = menuText("ManRefresh.Instruction.AskTryAgain");
    mpMsgDlg = new UMessageDlg(caption, text, 0, 0, nullptr, nullptr, false, 0);
    mpKeyObj = new UKeyObject(mpMsgDlg, nullptr, nullptr);
    mpKeyObj->addKey(UKeyObject::leftSoftKey, true);
    mpKeyObj->addKey(UKeyObject::rightSoftKey, true);
    connect(mpKeyObj, SIGNAL(keyPressed(int)), this, SLOT(slotKeyPress(int)));
    mpMsgDlg->setSoftkeyTextLeft(menuText("ManRefresh.Instruction.Retry"));
    mpMsgDlg->show();
    if (state == State::DOWN_ERROR)
        mDownErr = true;
    else
        mConnErr = true;
}

// False when this view is gone.
bool ManRefreshView::runNotice(UNoticeDlg& notice)
{
    const QPointer self(this);
    mNotices.push_back(&notice);
    notice.exec();
    if (!self)
        return false;
    mNotices.pop_back();
    showDueLater();
    return true;
}

void ManRefreshView::slotKeyPress(int key)
{
    if (key == UKeyObject::leftSoftKey)
        errorLSK();
    else if (key == UKeyObject::rightSoftKey)
        errorRSK();
    else
        return;
    delete std::exchange(mpKeyObj, nullptr);
}

void ManRefreshView::errorLSK()
{
    deleteMsgDlg();
    startRefresh();
    mDownErr = false;
    mConnErr = false;
    logger(7, "ManRefreshView::errorLSK");
}

void ManRefreshView::errorRSK()
{
    deleteMsgDlg();
    mDownErr = false;
    mConnErr = false;
    logger(7, "ManRefreshView::errorRSK");
}

void ManRefreshView::startRefresh()
{
    const Vt_Event event(NR_Constants::EVENT_INITIATE_MANUAL_REFRESH, 0);
    handleEvent(event);
    // The dialog that was answered must not stand there for as long as nothing answers.
    UApplication::instance()->repaintScreen();
    QThread::sleep(retryPause);
    // Nor must a key or a tap of that time answer the dialog that is to come.
    UApplication::instance()->dropEarlyInput();
    send(event);
}

void ManRefreshView::rightSoftKey()
{
    if (!mpProgressDlg)
        return;
    emit finish();
    isHide = false;
    send(Vt_Event(NR_Constants::EVENT_ABORT_MANUAL_REFRESH, 0));
    deleteProgressDlg();
}

// The dialog takes itself off the screen; it is deleted when the next one is shown.
void ManRefreshView::leftSoftKey()
{
    isHide = true;
    logger(7, "[ManRefresh] the dlg is hided");
}

void ManRefreshView::deleteProgressDlg()
{
    if (!mpProgressDlg)
        return;
    mpProgressDlg->close(false);
    delete std::exchange(mpProgressDlg, nullptr);
}

void ManRefreshView::deleteMsgDlg()
{
    if (!mpMsgDlg)
        return;
    mpMsgDlg->close(false);
    delete std::exchange(mpMsgDlg, nullptr);
}
