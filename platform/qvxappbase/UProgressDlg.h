#pragma once

#include "UPopup.h"

class QProgressBar;

// A pop-up that shows how far something is. The left soft key hides it (it is off the screen when
// leftSoftkeyClicked() is emitted, and stays alive), the right one cancels.
class UProgressDlg : public UPopup
{
    Q_OBJECT

public:
    // `total` is the progress at the end; the second number is the phone's and unused.
    UProgressDlg(const QString& caption, const QString& text, int total, int, QWidget* parent = nullptr,
                 const char* name = nullptr, bool modal = false, int flags = 0);

    // 0 to the total; what lies outside is taken as the nearer end.
    void setProgress(int progress);
    int progress() const;

private:
    QProgressBar* mBar;
};
