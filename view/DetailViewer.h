#pragma once

#include "UKbMainWidget.h"
#include "ViewerLife.h"

#include <vector>

class ManRefreshView;
class MenuNode;
class UDetailItem;
class UDetailView;
class USoftKey;

namespace vtmenu {

// The page that shows a menu node as a page of facts: each child's label as a heading, its value under it.
// Where the operator allows it, the left soft key refreshes the content by hand, and at the end of every such
// run, and whenever they may have changed, the page asks for its facts anew.
//
// Made with new; deletes itself from the event loop once it is closed.
class DetailViewer : public UKbMainWidget
{
    Q_OBJECT

public:
    // `node` is not owned and must outlive the viewer.
    DetailViewer(MenuNode* node, QWidget* parent, const char* name);

    // Fills and shows the page. Always 0.
    virtual int showView();

private slots:
    void hideAndDelete();
    void refresh();
    void slotReturnToIdle(int reason);
    void refreshUI();
    void deleteMe();

signals:
    void closed();

private:
    MenuNode* mNode;
    UDetailView* mDetailView;
    USoftKey* mSoftKey;
    ManRefreshView* mRefreshView;
    std::vector<UDetailItem*> mItems; // owned by mDetailView, in display order
    ViewerLife mLife{*this};
};

} // namespace vtmenu
