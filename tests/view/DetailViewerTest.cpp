#include "DetailViewer.h"
#include "UDetailItem.h"
#include "UDetailView.h"
#include "ViewTest.h"

#include <QPointer>
#include <QScrollBar>
#include <QSignalSpy>

namespace {

class DetailPage : public RefreshTest
{
protected:
    void open()
    {
        mPage = new vtmenu::DetailViewer(&mNode, nullptr, nullptr);
        EXPECT_EQ(mPage->showView(), 0);
        Screen::settle();
    }

    UDetailView& details() const { return *mPage->findChild<UDetailView*>(); }

    // The title; "# heading", then its lines, of every group.
    Lines lines() const
    {
        Lines lines = {mPage->mainWidgetTitle().toStdString()};
        for (const auto& item : details().items()) {
            lines.push_back("# " + item->label().toStdString());
            for (const QString& row : item->rows())
                lines.push_back(row.toStdString());
        }
        return lines;
    }

    static void finishRun() { emit ManRefreshView::instance()->finish(); }

    NodeSpy mNode{{}};
    QPointer<vtmenu::DetailViewer> mPage;
};

TEST_F(DetailPage, ShowsItsFactsAnewAfterARun)
{
    EntrySpy two("two", "a\nb"), gap("gap", "a\n\nb\n"), none("none"), hidden("hidden"), wide("naïve €");
    hidden.hidden = true;
    mNode.children = {&two, &gap, &none, &hidden, &wide};
    takeTrace();
    open();
    const std::string asked = "isHidden label hasValue ", valued = asked + "valueText ";
    EXPECT_EQ(takeTrace(), "title clearChildren loadChildren " + valued + valued + asked + "isHidden " + asked);
    EXPECT_EQ(lines(), (Lines{"Title", "# two", "a", "b", "# gap", "a", "", "b", "# none", "# naïve €"}));

    mNode.caption = "Later";
    mNode.children = std::vector<Entry*>(40, &none);
    finishRun();
    Screen::settle();
    press("Right # * Down");
    const int position = details().verticalScrollBar()->value();
    EXPECT_GT(position, 0);
    finishRun();
    Screen::settle();
    EXPECT_EQ(details().verticalScrollBar()->value(), position) << "it stays where it is scrolled to";
    mNode.children = {&none};
    finishRun();
    EXPECT_EQ(lines(), (Lines{"Later", "# none"}));
    Screen::settle();
    EXPECT_EQ(details().verticalScrollBar()->maximum(), 0) << "all of it is in sight";
    takeTrace();
    mNode.caption = "Completed by the service, which goes on after finish() when it was cancelled";
    for (int storm = 0; storm < 3; ++storm)
        Vt_EventAndStatusFacade::instance()->sendEvent(
            Vt_Event(NR_Constants::EVENT_NOTIFY_NETWORK_UPDATE_COMPLETED), 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return lines()[0] == mNode.caption; }));
    EXPECT_EQ(takeTrace(), "title clearChildren loadChildren " + asked) << "once";
}

TEST_F(DetailPage, OffersRefreshOnlyWhereItIsAllowedAndCloses)
{
    for (const bool allowed : {true, false}) {
        setBoolSetting(GROUP_UI, "ManualRefresh", allowed);
        open();
        EXPECT_EQ(mPage->findChild<USoftKey*>()->text(USoftKey::Left).isEmpty(), !allowed);
        press("F1");
        Screen::settle();
        EXPECT_EQ(popups().size(), allowed);
        QSignalSpy closed(mPage, &vtmenu::DetailViewer::closed);
        press(allowed ? "End" : "F2");
        EXPECT_EQ(closed.size(), 1);
        EXPECT_TRUE(mPage) << "not inside its own call";
        finishRun();
        Screen::settle();
        EXPECT_FALSE(mPage);
        finishRun();
    }
}

} // namespace
