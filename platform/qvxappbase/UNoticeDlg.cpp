#include "UNoticeDlg.h"

UNoticeDlg::UNoticeDlg(int /*type*/, const QString& text, const QString& title, QWidget* parent,
                       const char* name, bool modal, int flags, bool)
    : UPopup(title, parent, name, modal, flags)
{
    addText(text);
    setSoftkeyTextLeft(UPopup::tr("TXT_RID_SOFTKEY_OK", "OK"));
}

UNoticeDlg::UNoticeDlg(int type, int, const QString& text, const QString& title, QWidget* parent,
                       const char* name, bool modal, int flags)
    : UNoticeDlg(type, text, title, parent, name, modal, flags, true)
{
}
