#pragma once

#include "UPopup.h"

class UListBox;

// A pop-up with a list of choices, one of them with the radio mark. The keys move the highlight, a tap moves it
// and the mark; the left soft key or Enter gives the mark to the highlighted choice and confirms, unless that
// choice is not selectable.
class USingleSelectDlg : public UPopup
{
    Q_OBJECT

public:
    // The last argument is the phone's and unused.
    USingleSelectDlg(const QString& caption, const QString& instruction, QWidget* parent, const char* name,
                     bool modal, int flags, int);

    // The list; owned by the dialog, filled by whoever shows it.
    UListBox* getListBox() const { return mListBox; }

protected:
    bool mayConfirm() override;

private:
    UListBox* mListBox;
};
