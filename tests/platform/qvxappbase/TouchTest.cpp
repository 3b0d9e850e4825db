#include "PhoneScreen.h"
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

namespace {

struct TouchTest : testing::Test
{
    UKbMainWidget page;
    UListBox* list = new UListBox(QString(), &page);
    USoftKey* keys = new USoftKey("CST_2A", &page, &page);
    QSignalSpy selected{list, &UListBox::selected};
    QSignalSpy pressed{keys, &USoftKey::pressed};

    TouchTest()
    {
        page.setContentWidget(list);
        page.setCSTWidget(keys);
        for (int i = 0; i < 30; ++i)
            list->insertItem(new UListBoxItem(list, QString::number(i)), -1, true);
        list->setCurrentItem(0, true);
        page.show();
        Screen::settle();
    }

    QPoint at(int row) { return list->visualItemRect(list->item(row)).center(); }
    QWidget* viewport() { return list->viewport(); }
};

TEST_F(TouchTest, TheEmptyPlaceOfARowThatIsNotShownIsNotTheRow)
{
    const QPoint edge(20, viewport()->height() - 2);
    ASSERT_FALSE(list->isWhollyVisible(list->visualRect(list->indexAt(edge))));
    QTest::mouseClick(viewport(), Qt::LeftButton, {}, edge);
    EXPECT_EQ(selected.size(), 0);
    EXPECT_EQ(list->currentRow(), 0);
}

TEST_F(TouchTest, ARowThatADragPutOutOfSightIsNotTheRowEither)
{
    const QPoint edge(20, viewport()->height() - 2);
    list->verticalScrollBar()->setValue(1);
    const int last = list->indexAt(edge).row() - 1;
    QTest::mousePress(viewport(), Qt::LeftButton, {}, at(last));
    const int row = list->visualItemRect(list->item(0)).height();
    QMouseEvent move(QEvent::MouseMove, QPointF(at(last) + QPoint(0, row)), QPointF(), Qt::NoButton,
                     Qt::LeftButton, {});
    QCoreApplication::sendEvent(viewport(), &move);
    QTest::mouseRelease(viewport(), Qt::LeftButton, {}, edge);
    ASSERT_EQ(list->indexAt(edge).row(), last);
    QTest::mouseClick(viewport(), Qt::LeftButton, {}, edge);
    EXPECT_EQ(selected.size(), 0);
}

TEST_F(TouchTest, ATapThatBeganBeforeAPopupCameIsNone)
{
    QTest::mousePress(viewport(), Qt::LeftButton, {}, at(1));
    UMessageDlg popup(QString(), QString(), 0, 0);
    popup.show();
    QTest::mouseRelease(viewport(), Qt::LeftButton, {}, at(1));
    EXPECT_EQ(selected.size(), 0);
}

TEST_F(TouchTest, TheSecondTapOfADoubleTapIsNone)
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

TEST_F(TouchTest, ADragScrollsAndChoosesNothing)
{
    QTest::mousePress(viewport(), Qt::LeftButton, {}, at(6));
    QMouseEvent move(QEvent::MouseMove, QPointF(at(6).x(), 5), QPointF(), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(viewport(), &move);
    QTest::mouseRelease(viewport(), Qt::LeftButton, {}, QPoint(at(6).x(), 5));
    EXPECT_GT(list->verticalScrollBar()->value(), 3);
    EXPECT_EQ(selected.size(), 0);
}

// Some displays send the repetitions of a held key as a release and a press of the same moment.
TEST_F(TouchTest, AHeldKeyIsKnownWithoutItsMark)
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
}

TEST_F(TouchTest, LayersFollowTheScreenAndMarksGoWithTheRows)
{
    PhoneScreen::instance()->setFixedSize(300, 400);
    Screen::settle();
    EXPECT_EQ(page.size(), QSize(300, 400));
    PhoneScreen::instance()->setFixedSize(240, 320);
    Screen::settle();

    list->checkItem(3, true);
    list->insertItem(new UListBoxItem(list, QStringLiteral("first")), 0, true);
    EXPECT_EQ(list->radioItemChecked(), 4);
    list->clear();
    EXPECT_EQ(list->radioItemChecked(), -1);
}

} // namespace
