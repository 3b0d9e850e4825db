#include "RefreshScreen.h"

#include "HostBus.h"
#include "NR_Constants.h"
#include "PhoneScreen.h"
#include "TextBlock.h"
#include "UProgressDlg.h"
#include "USoftKey.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QStringList>
#include <QWindow>

namespace {

std::string describe(const UPopup& popup)
{
    QStringList parts;
    const QString caption = popup.accessibleName();
    if (!caption.isEmpty())
        parts += QLatin1Char('[') + caption + QLatin1Char(']');
    for (const TextBlock* text : popup.findChildren<TextBlock*>())
        if (caption.isEmpty() || text->accessibleName() != caption)
            parts += text->accessibleName();
    if (const auto* progress = qobject_cast<const UProgressDlg*>(&popup))
        parts += QString::number(progress->progress()) + QLatin1Char('%');
    const auto* keys = popup.findChild<USoftKey*>();
    parts += QStringLiteral("(%1 | %2)").arg(keys->text(USoftKey::Left), keys->text(USoftKey::Right));
    return parts.join(QLatin1Char(' ')).toStdString();
}

} // namespace

const char* const RefreshScreen::pack = R"({"settings": {
    "VtCore.DCD": {"RuntimeValues.ItemsDownloaded": 12, "RuntimeValues.BytesDownloaded": 1536},
    "VtCore.UI": {"ManualRefresh": true},
    "VtCore.Menu": {
        "ManRefresh.Option.Refresh": "Refresh",
        "ManRefresh.Instruction.ConnectingToServer": "Connecting",
        "ManRefresh.Instruction.DownloadingStories": "Downloading",
        "ManRefresh.Instruction.DownloadSuccessed": "Done: %1 stories, %2 KB",
        "ManRefresh.Instruction.ServerError": "No luck",
        "ManRefresh.Instruction.AskTryAgain": "Again?",
        "ManRefresh.Instruction.Retry": "Retry",
        "Error.QueueErr": "Queued"
    }}})";

std::vector<std::string> RefreshScreen::popups()
{
    std::vector<std::string> shown;
    for (const UPopup* popup : PhoneScreen::instance()->findChildren<UPopup*>(Qt::FindDirectChildrenOnly))
        if (!popup->isHidden())
            shown.push_back(describe(*popup));
    return shown;
}

void RefreshScreen::pressAtOnce(Qt::Key key)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(PhoneScreen::instance()->windowHandle(), &press);
}

SentRequests::SentRequests() : Vt_EventHandler(NR_Constants::EVENT_INITIATE_MANUAL_REFRESH)
{
    Vt_EventAndStatusFacade::instance()->addEventHandler(NR_Constants::EVENT_ABORT_MANUAL_REFRESH, this);
}

void SentRequests::handleEvent(const Vt_Event& event)
{
    mNames.push_back(event.name());
}

std::vector<std::string> SentRequests::names()
{
    HostBus::flush();
    QCoreApplication::sendPostedEvents();
    return mNames;
}
