#pragma once

#include <QListWidgetItem>
#include <QPixmap>
#include <QStringList>

class UListBox;

// One row of a list: a line of text and, under it, further lines in a quieter colour. Made for a list but part
// of it only from UListBox::insertItem on, which also passes the ownership.
class UListItem : public QListWidgetItem
{
public:
    explicit UListItem(const QString& text);

    // Adds a line. `column`, `wrap` and `icon` are the phone's and unused.
    void appendSubItem(int column, const QString& text, bool wrap, const QPixmap& icon = QPixmap());
    const QStringList& lines() const { return mLines; }

    // A row that is not enabled is greyed; one that is not selectable can be highlighted but not chosen.
    void setEnabled(bool enabled) { setFlag(Qt::ItemIsEnabled, enabled); }
    bool isEnabled() const { return flags().testFlag(Qt::ItemIsEnabled); }
    void setSelectable(bool selectable) { setFlag(Qt::ItemIsSelectable, selectable); }
    bool isSelectable() const { return flags().testFlag(Qt::ItemIsSelectable); }

    // A number of the program's own that travels with the row; 0 at first.
    void setReservedData(int data) { mReservedData = data; }
    int getReservedData() const { return mReservedData; }

private:
    void setFlag(Qt::ItemFlag flag, bool on);

    QStringList mLines;
    int mReservedData = 0;
};
