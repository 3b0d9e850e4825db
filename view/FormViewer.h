#pragma once

#include "USingleSelectDlg.h"

class FormEntry;

namespace vtmenu {

// The pop-up in which one choice of a form is made. It lives on the stack of the menu viewer that runs it, so nobody
// deletes it:
//
//     if (viewer.exec() == 1)
//         viewer.applyChoice();
class FormViewer : public USingleSelectDlg
{
    Q_OBJECT

public:
    // `form` is not owned.
    FormViewer(FormEntry* form, QWidget* parent, const QString& caption, const QString& instruction);

    // Fills the list from the form and shows it, the choice in force checked.
    void show() override;

    // Closes the warning, too, which then counts as refused.
    bool close(bool alsoDelete = false) override;

    // Gives the checked choice to the form, after a warning if that choice needs one. Refusing the warning
    // changes nothing.
    void applyChoice();

signals:
    // The choice changed something.
    void valueChanged();

private:
    FormEntry* mForm;
    UPopup* mWarning = nullptr; // while it is up
};

} // namespace vtmenu
