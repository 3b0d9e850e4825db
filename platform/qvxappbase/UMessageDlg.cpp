#include "UMessageDlg.h"

UMessageDlg::UMessageDlg(const QString& caption, const QString& text, int /*type*/, int, QWidget* parent,
                         const char* name, bool modal, int flags)
    : UPopup(caption, parent, name, modal, flags)
{
    addText(text);
    setSoftkeyTextLeft(UPopup::tr("TXT_RID_SOFTKEY_OK", "OK"));
    setSoftkeyTextRight(UPopup::tr("TXT_RID_SOFTKEY_CANCEL", "Cancel"));
}
