#include "UNoticeDlg.h"

#include "TextScroll.h"

#include <QVBoxLayout>

UNoticeDlg::UNoticeDlg(int /*type*/, const QString& text, const QString& title, QWidget* parent,
                       const char* name, bool modal, int flags, bool)
    : UPopup(title, parent, name, modal, flags)
{
    auto* scroll = new TextScroll(text, this);
    content()->addWidget(scroll);
    setKeyReceiver(scroll);
    setSoftkeyTextLeft(UPopup::tr("TXT_RID_SOFTKEY_OK", "OK"));
}

UNoticeDlg::UNoticeDlg(int type, int, const QString& text, const QString& title, QWidget* parent,
                       const char* name, bool modal, int flags)
    : UNoticeDlg(type, text, title, parent, name, modal, flags, true)
{
}
