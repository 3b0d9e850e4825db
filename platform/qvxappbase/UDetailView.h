#pragma once

#include <QAbstractScrollArea>

#include <memory>
#include <vector>

class UDetailItem;

// A page of groups, each a heading with lines under it, that scrolls when it is longer than the screen. It owns
// its items. Where it stands stays where it is when items come and go.
class UDetailView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    // `flags` and `skin` are the phone's and unused.
    UDetailView(QWidget* parent, int flags = 0, int skin = 0);
    ~UDetailView() override;

    // Appends a group, whose owner the page becomes.
    void addItem(UDetailItem* item);
    // Deletes the group; nothing for one that is not there.
    void removeItem(UDetailItem* item);
    const std::vector<std::unique_ptr<UDetailItem>>& items() const { return mItems; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool event(QEvent* event) override;

private:
    struct Line;

    void scheduleLayout();
    void layOut();

    std::vector<std::unique_ptr<UDetailItem>> mItems;
    std::vector<std::unique_ptr<Line>> mLines; // of the last layOut()
    bool mLayoutDue = false;
};
