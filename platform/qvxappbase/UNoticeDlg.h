#pragma once

#include "UPopup.h"

// A pop-up that tells something; any of its keys closes it.
class UNoticeDlg : public UPopup
{
    Q_OBJECT

public:
    // `type`, the number and the last argument are the phone's and unused. A null title adds no caption.
    UNoticeDlg(int type, const QString& text, const QString& title, QWidget* parent, const char* name,
               bool modal, int flags, bool);
    UNoticeDlg(int type, int, const QString& text, const QString& title, QWidget* parent, const char* name,
               bool modal, int flags);
};
