#include "DetailViewer.h"

#include "Entry.h"
#include "LivePages.h"
#include "ManRefreshView.h"
#include "MenuNode.h"
#include "NR_Constants.h"
#include "SettingHelper.h"
#include "UApplication.h"
#include "UDetailItem.h"
#include "UDetailView.h"
#include "USoftKey.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"

#include <sstream>

namespace vtmenu {

DetailViewer::DetailViewer(MenuNode* node, QWidget* parent, const char* name)
    : UKbMainWidget(parent, name, 0), mNode(node)
{
    mDetailView = new UDetailView(this, 0, 72);
    setContentWidget(mDetailView);

    mSoftKey = new USoftKey("CST_2A", this, this);
    if (getBoolSetting(GROUP_UI, "ManualRefresh")) {
        mSoftKey->setText(USoftKey::Left, tr("TXT_RID_SOFTKEY_REFRESH", "Refresh"), 0);
        mSoftKey->setClickedSlot(USoftKey::Left, SLOT(refresh()));
    }
    mSoftKey->setText(USoftKey::Right, tr("TXT_RID_SOFTKEY_BACK", "Back"), 0);
    mSoftKey->setClickedSlot(USoftKey::Right, SLOT(hideAndDelete()));
    setCSTWidget(mSoftKey);

    mRefreshView = ManRefreshView::instance();
    connect(mRefreshView, SIGNAL(finish()), this, SLOT(refreshUI()));
    connect(LivePages::instance(), SIGNAL(changed()), this, SLOT(refreshUI()));
    connect(UApplication::instance(), SIGNAL(askReturnToIdle(int)), this, SLOT(slotReturnToIdle(int)));
}

int DetailViewer::showView()
{
    refreshUI();
    show();
    return 0;
}

void DetailViewer::refreshUI()
{
    setMainWidgetTitle(QString::fromUtf8(mNode->title()));
    mNode->clearChildren();
    mNode->loadChildren();
    for (UDetailItem* item : mItems)
        mDetailView->removeItem(item);
    mItems.clear();

    const size_t count = mNode->mChildren.size();
    for (size_t i = 0; i < count; ++i) {
        const Entry* entry = mNode->mChildren[i];
        if (entry->isHidden())
            continue;
        auto* item = new UDetailItem(5, QString::fromUtf8(entry->label()), QChar(), nullptr);
        if (entry->hasValue()) {
            std::istringstream lines(entry->valueText());
            for (std::string line; std::getline(lines, line);)
                item->appendTextIconRow(QString::fromUtf8(line));
        }
        mDetailView->addItem(item);
        mItems.push_back(item);
    }
}

void DetailViewer::refresh()
{
    if (mRefreshView->isHidden()) {
        mRefreshView->handleEvent(
            Vt_Event(NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS, STATUS_CONNECTING));
        return;
    }
    const Vt_Event event(NR_Constants::EVENT_INITIATE_MANUAL_REFRESH, 0);
    mRefreshView->handleEvent(event);
    Vt_EventAndStatusFacade::instance()->sendEvent(event, 0);
}

void DetailViewer::hideAndDelete()
{
    if (!mLife.beginsToClose())
        return;
    emit closed();
    close(false);
    mLife.deleteSoon();
}

void DetailViewer::slotReturnToIdle(int /*reason*/)
{
    hideAndDelete();
}

void DetailViewer::deleteMe()
{
    if (mLife.mayBeDeleted())
        delete this;
}

} // namespace vtmenu
