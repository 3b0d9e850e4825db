#include "Screen.h"
#include "UKbMainWidget.h"
#include "UListBox.h"
#include "UListBoxItem.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace {

struct ListPage
{
    UKbMainWidget page;
    UListBox* list = new UListBox(QStringLiteral("%M"), &page);
    QSignalSpy selected{list, &UListBox::selected};

    explicit ListPage(int rows)
    {
        page.setContentWidget(list);
        for (int i = 0; i < rows; ++i)
            list->insertItem(new UListBoxItem(list, QString::number(i)), -1, true);
        list->setCurrentItem(0, true);
        page.show();
        Screen::settle();
    }

    void grey(int row)
    {
        list->item(row)->setEnabled(false);
        list->item(row)->setSelectable(false);
    }
};

TEST(List, KeysMoveTheHighlightAndStopAtTheEnds)
{
    const std::tuple<const char*, int, std::vector<Qt::Key>, int> cases[] = {
        {"up at the top", 0, {Qt::Key_Up}, 0},
        {"down at the bottom", 29, {Qt::Key_Down}, 29},
        {"over a greyed row", 3, {Qt::Key_Down, Qt::Key_Down}, 5},
        {"a page down from a greyed row leaves it", 4, {Qt::Key_PageDown, Qt::Key_PageUp}, 4},
        {"letters do not search", 0, {Qt::Key_2, Qt::Key_9}, 0},
    };
    ListPage page(30);
    page.grey(4);
    for (const auto& [what, start, keys, end] : cases) {
        page.list->setCurrentItem(start, true);
        Screen::press(keys);
        EXPECT_EQ(page.list->currentRow(), end) << what;
    }
    page.list->setCurrentItem(0, true);
    Screen::press({Qt::Key_PageDown});
    EXPECT_GT(page.list->currentRow(), 4) << "a page is more than a few rows";
    EXPECT_LT(page.list->currentRow(), 20) << "and no more than the screen shows";
}

TEST(List, ARowIsChosenOnceByKeyAndByTapUnlessItIsGreyed)
{
    ListPage page(3);
    page.grey(1);
    const auto tap = [&page](int row) {
        QTest::mouseClick(page.list->viewport(), Qt::LeftButton, {},
                          page.list->visualItemRect(page.list->item(row)).center());
    };

    Screen::press({Qt::Key_Return});
    Screen::repeat(Qt::Key_Return, 20);
    tap(2);
    EXPECT_EQ(page.selected, (QList<QList<QVariant>>{{0}, {2}}));
    tap(1);
    page.list->setCurrentItem(1, true);
    Screen::press({Qt::Key_Return});
    EXPECT_EQ(page.selected.size(), 2) << "greyed";
}

TEST(List, IndexesThatAreNotThere)
{
    ListPage page(3);
    UListBox& list = *page.list;
    list.setRadio(true);

    EXPECT_EQ(list.item(-1), nullptr);
    EXPECT_EQ(list.item(3), nullptr);
    list.setCurrentItem(7, true);
    EXPECT_EQ(list.currentRow(), 2) << "past the end is the last row";
    list.checkItem(3, true);
    EXPECT_EQ(list.radioItemChecked(), -1);
    list.checkItem(2, true);
    list.removeItem(0);
    EXPECT_EQ(list.radioItemChecked(), 1) << "the mark stays with its row";
    for (int row : {-5, 9})
        list.removeItem(row);
    EXPECT_EQ(list.radioItemChecked(), 1);
    list.clear();
    EXPECT_EQ(list.radioItemChecked(), -1);
    Screen::press({Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Return});
    EXPECT_EQ(page.selected.size(), 0);
}

TEST(List, TheMarqueeRunsOnTopTwiceAndRests)
{
    ListPage page(1);
    page.list->item(0)->appendSubItem(0, QStringLiteral("a text that is too long for the width of the phone"),
                                      false);
    page.list->enableMarquee(0, true);
    page.list->setCurrentItem(0, true);
    const QModelIndex row = page.list->currentIndex();

    page.list->clearFocus();
    page.list->setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return page.list->marqueeOffset(row) > 0; }, 5000));

    UKbMainWidget above;
    above.show();
    Screen::settle();
    EXPECT_EQ(page.list->marqueeOffset(row), 0) << "what is covered rests";
    QTest::qWait(1500);
    EXPECT_EQ(page.list->marqueeOffset(row), 0);
}

} // namespace
