#pragma once

#include "Failure.h"

#include <QObject>

#include <memory>

class UNoticeDlg;

// Tells on the screen what failed below the program, from the event loop. One notice at a time: what fails while a
// person reads is mostly the same again.
class FailureNotice : public QObject
{
    Q_OBJECT

public:
    // Listens until it is destroyed, which has to be before the screen is.
    FailureNotice();
    ~FailureNotice() override;

private:
    void show(Failure::Kind kind, const QString& about);

    std::unique_ptr<UNoticeDlg> mNotice;
};
