#pragma once

#include "RefreshState.h"
#include "Vt_EventHandler.h"

#include <QObject>

#include <deque>
#include <map>
#include <vector>

class UKeyObject;
class UMessageDlg;
class UNoticeDlg;
class UProgressDlg;

// The manual refresh: starts it, follows the service's reports and shows the dialog of each state. One for the
// whole process. Dialogs are only ever made from the event loop, never inside handleEvent().
class ManRefreshView : public QObject, public Vt_EventHandler
{
    Q_OBJECT

public:
    using State = RefreshState;

    // Made on first use, never destroyed.
    static ManRefreshView* instance();

    ManRefreshView();
    ~ManRefreshView() override;

    // Takes the service's events, and those that the details page and Retry build themselves.
    void handleEvent(const Vt_Event& event) override;

    // The user hid the progress dialog of a run that goes on.
    bool isHidden() const { return isHide; }

    // Seconds for which a retry blocks before it asks the service again. Tests shorten it.
    static unsigned retryPause;

public slots:
    void rightSoftKey();
    void leftSoftKey();
    // Closes the progress dialog and shows what belongs to the state. May run a nested event loop.
    void showDlg(State state);
    void slotKeyPress(int key);

signals:
    // The run is over as far as the user is concerned.
    void finish();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void advance(RefreshCause cause);
    void scheduleDlg(State state);
    void startTimers();
    void showDue();
    void showDueLater();
    void showProgressDlg(State state);
    void showSuccessNotice();
    void showErrDlg(State state);
    void showRetryDlg(State state);
    bool runNotice(UNoticeDlg& notice);
    void deleteProgressDlg();
    void deleteMsgDlg();
    void errorLSK();
    void errorRSK();
    void startRefresh();

    UProgressDlg* mpProgressDlg = nullptr; // owned
    UMessageDlg* mpMsgDlg = nullptr;       // owned
    UKeyObject* mpKeyObj = nullptr;        // owned
    State mState = State::IDLE;
    bool isHide = false;
    std::map<int, State> mTimerStates; // states waiting for their timer
    std::deque<State> mWaiting;        // states waiting for a timer: of those there are not many at a time
    std::deque<State> mDue;            // states whose timers have fired, waiting for a notice to be closed
    int mDueTimer = 0;                 // shows the next of these
    bool mDownErr = false;             // a download error was raised and not yet answered
    bool mConnErr = false;             // a connection error, likewise
    std::vector<UNoticeDlg*> mNotices; // those that are up, each in the event loop of the one before
};
