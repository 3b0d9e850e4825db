#pragma once

#include <QTimer>

#include <functional>

class Vt_Event;

// Stands in for a service that is not there. A refresh that this process asks for while there is none, or whose service
// goes away in the middle, would be waited for without end: after a moment it is given up, unless a report comes first.
class RefreshWatch
{
public:
    // `giveUp` is called from the event loop, once for a run at most.
    explicit RefreshWatch(std::function<void()> giveUp);

    // To be told of every event that this process sends and of every one that it gets, in their order, and that there
    // is no service any more.
    void sent(const Vt_Event& event, bool hasService);
    void received(const Vt_Event& event);
    void serviceLost();

    // Milliseconds for which a report is waited for. Tests shorten it.
    static int patience;

private:
    bool mIsOn = false; // a run that this process asked for
    QTimer mTimer;
};
