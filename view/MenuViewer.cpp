#include "MenuViewer.h"

#include "DetailViewer.h"
#include "Entry.h"
#include "EntryRegistry.h"
#include "FormEntry.h"
#include "FormViewer.h"
#include "LivePages.h"
#include "MenuNode.h"
#include "NR_URLLauncher.h"
#include "UApplication.h"
#include "UListBox.h"
#include "UMessageDlg.h"
#include "USettingItem.h"
#include "USoftKey.h"

#include <QScrollBar>

#include <algorithm>

namespace vtmenu {

MenuViewer::MenuViewer(MenuNode* node, bool isRoot, QWidget* parent, const char* name)
    : UKbMainWidget(parent, name, 0), mNode(node), mIsRoot(isRoot)
{
    mListBox = new UListBox(QStringLiteral("%M"), this, 0, 40);
    mListBox->enableMarquee(0, true);
    setContentWidget(mListBox);
    connect(mListBox, SIGNAL(selected(int)), this, SLOT(openItem(int)));

    mSoftKey = new USoftKey("CST_2A", this, this);
    mSoftKey->setText(USoftKey::Left, QStringLiteral(""), 0);
    mSoftKey->setText(USoftKey::Right, tr("TXT_RID_SOFTKEY_BACK", "Back"), 0);
    mSoftKey->setClickedSlot(USoftKey::Right, SLOT(hideAndDelete()));
    setCSTWidget(mSoftKey);

    connect(UApplication::instance(), SIGNAL(askReturnToIdle(int)), this, SLOT(slotReturnToIdle(int)));
    connect(LivePages::instance(), SIGNAL(changed()), this, SLOT(followChanges()));
}

MenuViewer::~MenuViewer()
{
    delete mListBox;
    delete mSoftKey;
}

int MenuViewer::showView()
{
    const ViewerLife::Nesting nesting(mLife);
    if (!mNode->isEnabled() && mNode->needsWarning() && !confirmWarning())
        return -1;
    setMainWidgetTitle(QString::fromUtf8(mNode->title()));
    rebuildMenuView();
    show();
    return 0;
}

bool MenuViewer::confirmWarning()
{
    const QString label = QString::fromUtf8(mNode->warningLabel());
    const QString text = QString::fromUtf8(mNode->warningText());
    UMessageDlg warning(label, text, 1, 0, nullptr, nullptr, true, 0);
    mPopup = &warning;
    const bool accepted = warning.exec() == 1;
    mPopup = nullptr;
    if (accepted)
        mNode->acceptWarning();
    else
        hideAndDelete();
    return accepted;
}

void MenuViewer::rebuildMenuView()
{
    mListBox->clear();
    fill(askForRows());
    mListBox->setCurrentItem(mCurrentIndex, true);
}

void MenuViewer::followChanges()
{
    if (!mIsBuilt) // its warning is still up, or was refused
        return;
    setMainWidgetTitle(QString::fromUtf8(mNode->title()));
    std::vector<Row> rows = askForRows();
    if (rows == mRows)
        return;
    const auto entryAt = [this](int row) {
        return row >= 0 && row < static_cast<int>(mRows.size()) ? mRows[static_cast<size_t>(row)].entry
                                                                : nullptr;
    };
    const int highlighted = mListBox->currentRow();
    const Entry* const highlightedEntry = entryAt(highlighted);
    const Entry* const openedEntry = entryAt(mCurrentIndex);
    const int scrolled = mListBox->verticalScrollBar()->value();
    mListBox->clear();
    fill(std::move(rows));
    mCurrentIndex = rowOf(openedEntry, mCurrentIndex);
    const int row = rowOf(highlightedEntry, highlighted);
    mListBox->setCurrentItem(row, true);
    if (row == highlighted) // else a person looks for the highlight where it went
        mListBox->verticalScrollBar()->setValue(scrolled);
}

std::vector<MenuViewer::Row> MenuViewer::askForRows()
{
    mNode->clearChildren();
    mNode->loadChildren();
    std::vector<Row> rows;
    int index = -1;
    for (Entry* entry : std::vector<Entry*>(mNode->mChildren)) {
        ++index;
        if (entry->isHidden())
            continue;
        Row row = {index, entry, QString::fromUtf8(entry->label()), {}, false, false};
        if (entry->hasValue())
            row.value = QString::fromUtf8(entry->valueText());
        row.isEnabled = entry->isEnabled();
        row.isSelectable = entry->isEnabled();
        rows.push_back(std::move(row));
    }
    return rows;
}

void MenuViewer::fill(std::vector<Row> rows)
{
    for (const Row& row : rows) {
        auto* item = new USettingItem(mListBox, QString());
        item->appendSubItem(0, row.label, false);
        if (row.value)
            item->appendSubItem(0, *row.value, false);
        item->setEnabled(row.isEnabled);
        item->setSelectable(row.isSelectable);
        item->setReservedData(row.index);
        mListBox->insertItem(item, -1, true);
    }
    mRows = std::move(rows);
    mIsBuilt = true;
}

int MenuViewer::rowOf(const Entry* entry, int otherwise) const
{
    const auto found = std::ranges::find(mRows, entry, &Row::entry);
    return found == mRows.end() ? otherwise : static_cast<int>(found - mRows.begin());
}

// The node may be shown by another viewer, too, which has loaded its children anew: a line opens only what it
// was built from. Where that is gone the list is out of date, so it is built again instead.
void MenuViewer::openItem(int row)
{
    const ViewerLife::Nesting nesting(mLife);
    mCurrentIndex = row;
    const auto i = static_cast<size_t>(mListBox->item(row)->getReservedData());
    Entry* const entry = mRows.at(static_cast<size_t>(row)).entry;
    if (i < mNode->mChildren.size() && mNode->mChildren[i] == entry)
        openEntry(entry);
    else
        rebuildMenuView();
}

void MenuViewer::openEntry(Entry* entry)
{
    switch (EntryRegistry::instance()->kindOf(entry)) {
    case ENTRY_ACTION: {
        auto* action = static_cast<ActionEntry*>(entry);
        if (action->mArgMode == 0)
            action->invoke();
        else
            action->invoke(action->mArg);
        break;
    }
    case ENTRY_FORM:
        openForm(static_cast<FormAdapter*>(entry)->form());
        break;
    case ENTRY_NODE:
        openNode(static_cast<NodeAdapter*>(entry)->node());
        break;
    case ENTRY_LINK:
        NR_URLLauncher::launch(vtTypes::ID(static_cast<LinkEntry*>(entry)->url()));
        break;
    default:
        break;
    }
}

void MenuViewer::openNode(MenuNode* node)
{
    if (node->mDetailsFlag != 0) {
        (new DetailViewer(node, nullptr, nullptr))->showView();
        return;
    }
    auto* viewer = new MenuViewer(node, false, nullptr, nullptr);
    connect(viewer, SIGNAL(valueChanged()), this, SLOT(rebuildMenuView()));
    viewer->showView();
}

void MenuViewer::openForm(FormEntry* form)
{
    if (!form)
        return;
    if (form->optionCount() == 1) {
        form->setValue(0);
        rebuildMenuView();
        return;
    }
    const LivePages::Hold hold;
    const QString title = QString::fromUtf8(form->title());
    const QString instruction = QString::fromUtf8(form->instructText());
    FormViewer viewer(form, this, title, instruction);
    connect(&viewer, SIGNAL(valueChanged()), this, SLOT(rebuildMenuView()));
    mPopup = &viewer;
    if (viewer.exec() == 1)
        viewer.applyChoice();
    mPopup = nullptr;
}

void MenuViewer::hideAndDelete()
{
    if (mLife.beginsToClose()) {
        if (mPopup)
            mPopup->close(false);
        close(false);
        if (!mIsRoot)
            mLife.deleteSoon();
    }
    // Every time: quit() does nothing before the event loop runs.
    if (mIsRoot)
        qApp->quit();
}

void MenuViewer::slotReturnToIdle(int /*reason*/)
{
    hideAndDelete();
}

void MenuViewer::deleteMe()
{
    if (mLife.mayBeDeleted())
        delete this;
}

} // namespace vtmenu
