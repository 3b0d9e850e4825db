#pragma once

#include "UKbMainWidget.h"
#include "ViewerLife.h"

#include <optional>
#include <vector>

class Entry;
class FormEntry;
class MenuNode;
class UListBox;
class UPopup;
class USoftKey;

namespace vtmenu {

// The page that shows one menu node as a list, and opens what is chosen there.
//
// Made with new. A viewer closes through hideAndDelete(): the root viewer then ends the application and is
// never deleted, any other one deletes itself from the event loop.
class MenuViewer : public UKbMainWidget
{
    Q_OBJECT

public:
    // `node` is not owned and must outlive the viewer. Neither fills the list nor shows the page.
    MenuViewer(MenuNode* node, bool isRoot, QWidget* parent, const char* name);
    ~MenuViewer() override;

    // Opens the node, after a warning if it asks for one. 0 when the page is shown; -1 when the viewer closed
    // itself instead, because the warning was refused or the viewer was closed while it was up.
    virtual int showView();

public slots:
    // Asks the node and its entries anew and keeps the line that was opened last highlighted.
    void rebuildMenuView();

private slots:
    // The same after a change from outside: nobody notices where all is as it was, and the highlight stays on its entry.
    void followChanges();
    void openItem(int row);
    virtual void hideAndDelete();
    virtual void slotReturnToIdle(int reason);
    void deleteMe();

signals:
    // Asks the viewer below to rebuild its list.
    void valueChanged();

private:
    // A line of the list, as its entry answered.
    struct Row
    {
        int index; // of the entry among the node's children
        Entry* entry;
        QString label;
        std::optional<QString> value;
        bool isEnabled, isSelectable;
        bool operator==(const Row&) const = default;
    };

    std::vector<Row> askForRows();
    void fill(std::vector<Row> rows);
    int rowOf(const Entry* entry, int otherwise) const;
    bool confirmWarning();
    void openEntry(Entry* entry);
    void openNode(MenuNode* node);
    void openForm(FormEntry* form);

    MenuNode* mNode;
    bool mIsRoot;
    UListBox* mListBox;
    USoftKey* mSoftKey;
    int mCurrentIndex = 0;
    std::vector<Row> mRows; // what the list was built from
    bool mIsBuilt = false;
    UPopup* mPopup = nullptr; // the pop-up that this viewer runs now; goes with it, its answer then 0
    ViewerLife mLife{*this};
};

} // namespace vtmenu
