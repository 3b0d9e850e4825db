#pragma once

#include <QStringList>
#include <QStyledItemDelegate>

#include <functional>
#include <optional>

class QAbstractItemView;

// What a row of a list looks like now.
struct RowLook
{
    QStringList lines;
    bool isEnabled = true;
    bool isHighlighted = false;
    std::optional<bool> radio; // whether its mark is set, where the list has marks
    int offset = 0;            // how far its lines have run through, in pixels
};

// Draws the rows of a list, greyed and highlighted ones in Look's colours for them, and knows how much room they take.
// Belongs to the list.
class RowDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using LookOf = std::function<RowLook(const QModelIndex& index)>;

    RowDelegate(QAbstractItemView* list, LookOf lookOf);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // Only rows that have room to the last pixel are shown; the place of one that has not stays empty.
    bool isWhollyVisible(const QRect& row) const;

    // Pixels that the row's lines move when they run through once, 0 when all of them fit.
    int runLength(const QModelIndex& index) const;

private:
    QRect textArea(const QRect& row, bool hasRadio) const;

    QAbstractItemView* mList;
    const LookOf mLookOf;
};
