#pragma once

#include <QStyledItemDelegate>

class UListBox;

// Draws the rows of a UListBox and knows how much room they take.
class RowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit RowDelegate(UListBox* list);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // Pixels that the row's lines move when they run through once, 0 when all of them fit.
    int runLength(const QModelIndex& index) const;

private:
    QRect textArea(const QRect& row) const;

    UListBox* mList;
};
