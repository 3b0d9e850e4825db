#include "PhoneScreen.h"
#include "RowDelegate.h"
#include "Screen.h"
#include "UKbMainWidget.h"
#include "UListBox.h"
#include "UListBoxItem.h"
#include "UMessageDlg.h"
#include "USoftKey.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <ctime>

namespace {

// A page with a list of 30 rows, of which the fifth is greyed.
struct ListTest : testing::Test
{
    UKbMainWidget page;
    UListBox* list = new UListBox(QString(), &page);
    USoftKey* keys = new USoftKey("CST_2A", &page, &page);
    QSignalSpy selected{list, &UListBox::selected};
    QSignalSpy pressed{keys, &USoftKey::pressed};

    ListTest()
    {
        page.setContentWidget(list);
        page.setCSTWidget(keys);
        for (int i = 0; i < 30; ++i)
            list->insertItem(new UListBoxItem(list, QString::number(i)), -1, true);
        list->item(4)->setEnabled(false);
        list->item(4)->setSelectable(false);
        list->setCurrentItem(0, true);
        page.show();
        Screen::settle();
    }

    QPoint at(int row) { return list->visualItemRect(list->item(row)).center(); }
    QWidget* viewport() { return list->viewport(); }
    void drag(const QPoint& from, const QPoint& to)
    {
        QTest::mousePress(viewport(), Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, QPointF(to), QPointF(), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(viewport(), &move);
        QTest::mouseRelease(viewport(), Qt::LeftButton, {}, to);
    }
};

TEST_F(ListTest, KeysMoveTheHighlightAndStopAtTheEnds)
{
    const std::tuple<const char*, int, std::vector<Qt::Key>, int> cases[] = {
        {"up at the top", 0, {Qt::Key_Up}, 0},
        {"down at the bottom", 29, {Qt::Key_Down}, 29},
        {"over a greyed row", 3, {Qt::Key_Down, Qt::Key_Down}, 5},
        {"a page down from a greyed row leaves it", 4, {Qt::Key_PageDown, Qt::Key_PageUp}, 4},
        {"letters do not search", 0, {Qt::Key_2, Qt::Key_9}, 0},
    };
    for (const auto& [what, start, keys, end] : cases) {
        list->setCurrentItem(start, true);
        Screen::press(keys);
        EXPECT_EQ(list->currentRow(), end) << what;
    }
    list->setCurrentItem(0, true);
    Screen::press({Qt::Key_PageDown});
    EXPECT_GT(list->currentRow(), 4) << "a page is more than a few rows";
    EXPECT_LT(list->currentRow(), 20) << "and no more than the screen shows";
}

TEST_F(ListTest, ARowIsChosenOnceByKeyAndByTapUnlessItIsGreyed)
{
    Screen::press({Qt::Key_Return});
    Screen::repeat(Qt::Key_Return, 20);
    QTest::mouseClick(viewport(), Qt::LeftButton, {}, at(2));
    EXPECT_EQ(selected, (QList<QList<QVariant>>{{0}, {2}}));
    QTest::mouseClick(viewport(), Qt::LeftButton, {}, at(4));
    list->setCurrentItem(4, true);
    Screen::press({Qt::Key_Return});
    EXPECT_EQ(selected.size(), 2) << "greyed";
}

TEST_F(ListTest, IndexesThatAreNotThere)
{
    list->setRadio(true);
    for (int row : {-1, 30})
        EXPECT_EQ(list->item(row), nullptr);
    list->setCurrentItem(70, true);
    EXPECT_EQ(list->currentRow(), 29) << "past the end is the last row";
    list->checkItem(30, true);
    EXPECT_EQ(list->radioItemChecked(), -1);
    list->checkItem(2, true);
    list->removeItem(0);
    EXPECT_EQ(list->radioItemChecked(), 1) << "the mark stays with its row";
    list->insertItem(new UListBoxItem(list, QStringLiteral("first")), 0, true);
    for (int row : {-5, 90})
        list->removeItem(row);
    EXPECT_EQ(list->radioItemChecked(), 2);
    list->clear();
    EXPECT_EQ(list->radioItemChecked(), -1);
    Screen::press({Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Return});
    EXPECT_EQ(selected.size(), 0);
}

TEST_F(ListTest, TheMarqueeRunsOnTopTwiceAndRests)
{
    list->item(0)->appendSubItem(0, QStringLiteral("a text that is too long for the width of the phone"),
                                 false);
    list->enableMarquee(0, true);
    const QModelIndex row = list->currentIndex();
    list->clearFocus();
    list->setFocus();
    EXPECT_TRUE(QTest::qWaitFor([&] { return list->lookOf(row).offset > 0; }, 60'000));

    UKbMainWidget above;
    above.show();
    Screen::settle();
    EXPECT_EQ(list->lookOf(row).offset, 0) << "what is covered rests";
    QTest::qWait(1500);
    EXPECT_EQ(list->lookOf(row).offset, 0);
}

// Four times the rows cost four times as much, not sixteen times: for each row to come, to be shown and to go.
TEST_F(ListTest, LongListsTakeNoLongerThanTheirLengthAsksFor)
{
    const auto timeFor = [this](int rows) {
        const std::clock_t begin = std::clock();
        list->clear();
        for (int i = 0; i < rows; ++i)
            list->insertItem(new UListBoxItem(list, QString::number(i)), -1, true);
        list->setCurrentItem(rows, true);
        Screen::settle();
        while (list->count() > 1)
            list->removeItem(list->count() - 1);
        return static_cast<double>(std::clock() - begin);
    };
    timeFor(1000);
    const double few = timeFor(5000);
    EXPECT_LT(timeFor(20000), 9 * few);
}

TEST_F(ListTest, TheEmptyPlaceOfARowThatIsNotShownIsNotTheRow)
{
    const QPoint edge(20, viewport()->height() - 2);
    ASSERT_FALSE(list->isWhollyVisible(list->visualRect(list->indexAt(edge))));
    QTest::mouseClick(viewport(), Qt::LeftButton, {}, edge);
    EXPECT_EQ(selected.size(), 0);
    EXPECT_EQ(list->currentRow(), 0);
}

TEST_F(ListTest, ARowThatADragPutOutOfSightIsNotTheRowEither)
{
    const QPoint edge(20, viewport()->height() - 2);
    list->verticalScrollBar()->setValue(1);
    const int last = list->indexAt(edge).row() - 1;
    drag(at(last), edge);
    ASSERT_EQ(list->indexAt(edge).row(), last);
    QTest::mouseClick(viewport(), Qt::LeftButton, {}, edge);
    EXPECT_EQ(selected.size(), 0);
}

TEST_F(ListTest, ATapThatBeganBeforeAPopupCameIsNone)
{
    QTest::mousePress(viewport(), Qt::LeftButton, {}, at(1));
    UMessageDlg popup(QString(), QString(), 0, 0);
    popup.show();
    QTest::mouseRelease(viewport(), Qt::LeftButton, {}, at(1));
    EXPECT_EQ(selected.size(), 0);
}

TEST_F(ListTest, TheSecondTapOfADoubleTapIsNone)
{
    QTest::mouseClick(viewport(), Qt::LeftButton, {}, at(1));
    QTest::mouseDClick(viewport(), Qt::LeftButton, {}, at(1));
    QWidget* back = keys->childAt(200, 10);
    QTest::mousePress(back, Qt::LeftButton);
    EXPECT_EQ(pressed.size(), 1) << "a soft key answers when it is pressed";
    QTest::mouseRelease(back, Qt::LeftButton);
    QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton,
                       Qt::LeftButton, {});
    QCoreApplication::sendEvent(back, &second);
    QCoreApplication::sendEvent(viewport(), &second);
    EXPECT_EQ(pressed.size(), 1);
    EXPECT_LE(selected.size(), 2);
}

TEST_F(ListTest, ADragScrollsAndChoosesNothing)
{
    drag(at(6), QPoint(at(6).x(), 5));
    EXPECT_GT(list->verticalScrollBar()->value(), 3);
    EXPECT_EQ(selected.size(), 0);
}

// Some displays send the repetitions of a held key as a release and a press of the same moment.
TEST_F(ListTest, AHeldKeyIsKnownWithoutItsMark)
{
    const auto send = [](QEvent::Type type, quint64 time) {
        QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier, 36, 0, 0);
        event.setTimestamp(time);
        QCoreApplication::sendEvent(PhoneScreen::instance()->windowHandle(), &event);
    };
    send(QEvent::KeyPress, 1000);
    for (quint64 time : {1500, 1540, 1580}) {
        send(QEvent::KeyRelease, time);
        send(QEvent::KeyPress, time);
    }
    EXPECT_EQ(selected.size(), 1);
    send(QEvent::KeyRelease, 1600);
    send(QEvent::KeyPress, 1800);
    EXPECT_EQ(selected.size(), 2);
    send(QEvent::KeyRelease, 1900);
}

TEST_F(ListTest, LayersFollowTheScreen)
{
    PhoneScreen::instance()->setFixedSize(300, 400);
    Screen::settle();
    EXPECT_EQ(page.size(), QSize(300, 400));
    PhoneScreen::instance()->setFixedSize(240, 320);
    Screen::settle();
}

} // namespace
