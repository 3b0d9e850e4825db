#include "FailureNotice.h"

#include "UNoticeDlg.h"

namespace {

QString textOf(Failure::Kind kind)
{
    switch (kind) {
    case Failure::Kind::NotSaved:
        return UPopup::tr("TXT_RID_NOTICE_NOT_SAVED", "Your choice could not be saved.");
    case Failure::Kind::NoStore:
        return UPopup::tr("TXT_RID_NOTICE_NO_STORE", "Settings can't be used here. No choice will be saved.");
    case Failure::Kind::NotOpened:
        return UPopup::tr("TXT_RID_NOTICE_NOT_OPENED", "No application here opens %1 links.");
    case Failure::Kind::NotKnown:
        return UPopup::tr("TXT_RID_NOTICE_NOT_KNOWN", "Nobody says whether the %1 link was opened.");
    case Failure::Kind::NoApplication:
        break;
    }
    return UPopup::tr("TXT_RID_NOTICE_NO_APPLICATION", "The application for this is not here.");
}

} // namespace

FailureNotice::FailureNotice()
{
    Failure::setListener([this](Failure::Kind kind, const std::string& about) {
        QMetaObject::invokeMethod(
            this, [this, kind, about = QString::fromStdString(about)] { show(kind, about); },
            Qt::QueuedConnection);
    });
}

FailureNotice::~FailureNotice()
{
    Failure::setListener({});
}

void FailureNotice::show(Failure::Kind kind, const QString& about)
{
    if (mNotice && mNotice->isVisible())
        return;
    const QString text = textOf(kind).replace(QLatin1String("%1"), about);
    mNotice = std::make_unique<UNoticeDlg>(0, text, QString(), nullptr, nullptr, false, 0, true);
    mNotice->show();
}
