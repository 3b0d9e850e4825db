#include "DetailViewer.h"
#include "ApiProvider.h"
#include "DetailsNode.h"
#include "Entry.h"
#include "HostBus.h"
#include "LogCapture.h"
#include "ManRefreshView.h"
#include "NR_Constants.h"
#include "PhoneScreen.h"
#include "RefreshScreen.h"
#include "Screen.h"
#include "SettingHelper.h"
#include "TestStore.h"
#include "UApplication.h"
#include "UDetailItem.h"
#include "UDetailView.h"
#include "USoftKey.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"

#include <QPointer>
#include <QScrollBar>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

using Lines = std::vector<std::string>;

struct Fact : Entry
{
    Fact(std::string label, std::optional<std::string> value, bool hidden = false)
        : mLabel(std::move(label)), mValue(std::move(value)), mHidden(hidden)
    {
    }
    bool isHidden() const override { return mHidden; }
    bool isEnabled() const override { return true; }
    std::string label() const override { return mLabel; }
    bool hasValue() const override { return mValue.has_value(); }
    std::string valueText() const override { return *mValue; }

    std::string mLabel;
    std::optional<std::string> mValue;
    bool mHidden;
};

// A page whose facts are told anew at every loading.
struct Facts : MenuNode
{
    Facts() : MenuNode("Facts", 1) {}
    bool isHidden() const override { return false; }
    bool isEnabled() const override { return true; }
    std::string title() const override { return mTitle; }
    std::string label() const override { return {}; }
    void loadChildren() override
    {
        for (Fact& fact : mFacts)
            mChildren.push_back(&fact);
    }

    std::string mTitle = "Details";
    std::vector<Fact> mFacts;
};

class DetailPage : public testing::Test
{
protected:
    ~DetailPage() override
    {
        emit UApplication::instance()->askReturnToIdle(0);
        Screen::settle();
        EXPECT_FALSE(mPage);
    }

    void open(MenuNode& node)
    {
        auto* page = new vtmenu::DetailViewer(&node, nullptr, nullptr);
        mPage = page;
        EXPECT_EQ(page->showView(), 0);
        Screen::settle();
    }

    UDetailView& details() const { return *mPage->findChild<UDetailView*>(); }
    QString key(int index) const { return mPage->findChild<USoftKey*>()->text(index); }

    // "# heading", then its lines, of every group.
    Lines lines() const
    {
        Lines lines;
        for (const auto& item : details().items()) {
            lines.push_back("# " + item->label().toStdString());
            for (const QString& row : item->rows())
                lines.push_back(row.toStdString());
        }
        return lines;
    }

    static void finishRun() { emit ManRefreshView::instance()->finish(); }

    TestStore mStore{RefreshScreen::pack};
    LogCapture mLog;
    QPointer<vtmenu::DetailViewer> mPage;
};

TEST_F(DetailPage, HasItsSlotsInOrder)
{
    const QMetaObject& meta = vtmenu::DetailViewer::staticMetaObject;
    EXPECT_STREQ(meta.className(), "vtmenu::DetailViewer");
    EXPECT_STREQ(meta.superClass()->className(), "UKbMainWidget");
    Lines methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        methods.push_back(meta.method(i).methodSignature().toStdString());
    EXPECT_EQ(methods, (Lines{"closed()", "hideAndDelete()", "refresh()", "slotReturnToIdle(int)",
                              "refreshUI()", "deleteMe()"}));
}

TEST_F(DetailPage, ShowsEachVisibleFactWithItsLines)
{
    Facts node;
    node.mFacts = {{"one", "a"},     {"two", "a\nb"},       {"gap", "a\n\nb"},
                   {"ended", "a\n"}, {"empty", ""},         {"only a feed", "\n"},
                   {"none", {}},     {"hidden", "a", true}, {"", "naïve €"}};
    open(node);
    EXPECT_EQ(lines(), (Lines{"# one", "a", "# two", "a", "b", "# gap", "a", "", "b", "# ended", "a", "# empty",
                              "# only a feed", "", "# none", "# ", "naïve €"}));
    EXPECT_EQ(mPage->mainWidgetTitle(), QStringLiteral("Details"));

    node.mTitle = "Later";
    node.mFacts = {{"one", "b"}};
    finishRun();
    EXPECT_EQ(lines(), (Lines{"# one", "b"}));
    EXPECT_EQ(mPage->mainWidgetTitle(), QStringLiteral("Later"));
}

TEST_F(DetailPage, StaysWhereItIsScrolledTo)
{
    Facts node;
    for (int i = 0; i < 40; ++i)
        node.mFacts.push_back({std::to_string(i), "value"});
    open(node);
    Screen::press({Qt::Key_PageDown, Qt::Key_Down});
    const int position = details().verticalScrollBar()->value();
    ASSERT_GT(position, 0);
    finishRun();
    Screen::settle();
    EXPECT_EQ(details().verticalScrollBar()->value(), position);

    node.mFacts.erase(node.mFacts.begin() + 1, node.mFacts.end());
    finishRun();
    Screen::settle();
    EXPECT_EQ(details().verticalScrollBar()->value(), 0) << "nothing is left to scroll";
}

TEST_F(DetailPage, OffersRefreshOnlyWhereItIsAllowed)
{
    Facts node;
    SentRequests sent;
    setBoolSetting(GROUP_UI, "ManualRefresh", false);
    open(node);
    EXPECT_EQ(key(USoftKey::Left), QString());
    EXPECT_EQ(key(USoftKey::Right), QStringLiteral("Back"));
    Screen::press({Qt::Key_F1, Qt::Key_Return});
    Screen::settle();
    EXPECT_EQ(sent.names(), Lines{});
    EXPECT_EQ(RefreshScreen::popups(), Lines{});
}

TEST_F(DetailPage, StartsARefreshAndBringsAHiddenOneBack)
{
    Facts node;
    SentRequests sent;
    open(node);
    EXPECT_EQ(key(USoftKey::Left), QStringLiteral("Refresh"));

    const auto pressed = [](Qt::Key key) {
        Screen::press({key});
        Screen::settle();
        return RefreshScreen::popups();
    };
    EXPECT_EQ(pressed(Qt::Key_F1), Lines{RefreshScreen::connecting});
    EXPECT_EQ(sent.names(), Lines{NR_Constants::EVENT_INITIATE_MANUAL_REFRESH});
    EXPECT_EQ(pressed(Qt::Key_F1), Lines{}) << "hidden";
    EXPECT_EQ(pressed(Qt::Key_F1), Lines{RefreshScreen::connecting}) << "back";
    EXPECT_EQ(sent.names().size(), 1u) << "and the service is not asked again";

    node.mTitle = "Later";
    EXPECT_EQ(pressed(Qt::Key_F2), Lines{}) << "cancelled";
    EXPECT_EQ(sent.names().back(), NR_Constants::EVENT_ABORT_MANUAL_REFRESH);
    EXPECT_EQ(mPage->mainWidgetTitle(), QStringLiteral("Later"));
}

TEST_F(DetailPage, ClosesByBackAndByTheIdleScreen)
{
    const std::vector<std::function<void()>> ways = {
        [] { RefreshScreen::pressAtOnce(Qt::Key_F2); },
        [] { RefreshScreen::pressAtOnce(Qt::Key_End); },
        [] { emit UApplication::instance()->askReturnToIdle(3); },
    };
    Facts node;
    for (const auto& leave : ways) {
        open(node);
        QSignalSpy closed(mPage, &vtmenu::DetailViewer::closed);
        leave();
        EXPECT_EQ(closed.size(), 1);
        EXPECT_TRUE(mPage) << "not inside its own call";
        EXPECT_FALSE(PhoneScreen::instance()->isOnTop(mPage));
        finishRun();
        Screen::settle();
        EXPECT_FALSE(mPage);
        finishRun();
    }
}

// The phone goes back to its idle screen while a notice runs its event loop over the page.
TEST_F(DetailPage, ClosesUnderANotice)
{
    Facts node;
    open(node);
    ManRefreshView::instance()->showDlg(ManRefreshView::State::CONNECTING);
    Screen::later([] { emit UApplication::instance()->askReturnToIdle(0); });
    ManRefreshView::instance()->showDlg(ManRefreshView::State::DOWN_SUCCESS);
    Screen::settle();
    EXPECT_FALSE(mPage);
}

TEST_F(DetailPage, TellsTheServicesNewsAtTheEndOfARun)
{
    ApiProvider::instance();
    DetailsNode node;
    setStringSetting(GROUP_DCD, "RuntimeValues.LastUpdateResult", "");
    open(node);
    ASSERT_EQ(details().items().size(), 8u);

    using Parameters = Vt_Event::Parameters;
    const auto storage =
        std::make_shared<Parameters>(Parameters{{"total", "9 K"}, {"free", "2 K"}, {"used", "7 K"}});
    Vt_EventAndStatusFacade::instance()->sendEvent(
        Vt_Event(NR_Constants::EVENT_NOTIFY_STORAGE_STATUS, 0, storage), 0);
    HostBus::flush();
    Screen::settle();
    const Lines before = lines();
    finishRun();
    const Lines after = lines();
    EXPECT_NE(before, after) << "the page changes when the run is over";
    ASSERT_GE(after.size(), 3u);
    EXPECT_EQ(Lines(after.end() - 3, after.end()), (Lines{" 7 K", " 2 K", " 9 K"}));
}

} // namespace
