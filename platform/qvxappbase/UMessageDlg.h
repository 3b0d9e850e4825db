#pragma once

#include "UPopup.h"

// A pop-up with a question or a message that the two soft keys answer.
class UMessageDlg : public UPopup
{
    Q_OBJECT

public:
    // `type` and the number are the phone's and unused: every kind has a key to confirm and one to refuse.
    UMessageDlg(const QString& caption, const QString& text, int type, int, QWidget* parent = nullptr,
                const char* name = nullptr, bool modal = true, int flags = 0);
};
