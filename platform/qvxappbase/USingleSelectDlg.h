#pragma once

#include "UPopup.h"

class UListBox;

// A pop-up with a list of choices, one of them with the radio mark. The keys move the highlight, a tap moves it
// and the mark; the left soft key or Enter gives the mark to the highlighted choice and confirms, unless that
// choice is not selectable. A digit does so with the choice at its place, and a tap beside the pop-up is its right soft
// key.
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
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    UListBox* mListBox;
    bool mPressedBeside = false;
};
