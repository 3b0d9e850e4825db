#pragma once

#include <QListWidget>

class Marquee;
class RowDelegate;
struct RowLook;
class UListItem;

// A list of rows, one of them highlighted. It owns its rows.
class UListBox : public QListWidget
{
    Q_OBJECT

public:
    // `type`, `flags` and `skin` are the phone's and unused.
    UListBox(const QString& type, QWidget* parent, int flags = 0, int skin = 0);
    ~UListBox() override;

    // Rows carry a radio mark. The keys then only move the highlight; choosing is left to the dialog around.
    void setRadio(bool radio);
    bool isRadio() const { return mRadio; }

    // Lets the highlighted row's lines run through when they are too long. `region` is the phone's and unused.
    void enableMarquee(int region, bool enabled);

    // Inserts a row, whose owner the list becomes; a negative position, or one past the end, appends.
    void insertItem(UListItem* item, int position, bool redraw);
    // Deletes all rows.
    void clear();
    // Deletes the row; nothing for a row that is not there.
    void removeItem(int row);
    // The row, or null when there is none.
    UListItem* item(int row) const;

    // Highlights a row: past the end the last one, a negative one the first. Nothing in an empty list.
    void setCurrentItem(int row, bool redraw);

    // Moves the radio mark, and the highlight with it, to a row, or takes it from there; nothing for a row that
    // is not there.
    void checkItem(int row, bool checked);
    // The row with the radio mark, -1 when there is none.
    int radioItemChecked() const;

    // What a row looks like now, which its delegate draws.
    RowLook lookOf(const QModelIndex& index) const;

    // Only rows that have room to the last pixel are shown; the place of one that has not stays empty.
    bool isWhollyVisible(const QRect& row) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    // A person chose this row. Emitted once a choice, and never for a row that is not selectable. The list may
    // be gone when the signal returns.
    void selected(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int rowOnePageFrom(int row, int step) const;
    void choose(int row);
    void startMarquee();

    RowDelegate* mRows;
    Marquee* mMarquee = nullptr;
    int mChecked = -1;
    bool mRadio = false;
};
