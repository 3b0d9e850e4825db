#include "FormViewer.h"
#include "MenuSettings.h"
#include "MenuViewer.h"
#include "UMessageDlg.h"
#include "ViewTest.h"

using namespace vtmenu;

namespace {

// The viewers that exist, shown or not.
ptrdiff_t viewers()
{
    return std::ranges::count_if(QApplication::allWidgets(),
                                 [](QWidget* widget) { return qobject_cast<MenuViewer*>(widget); });
}

class ViewerLifetime : public testing::Test
{
protected:
    // A settings menu that leads back to the root menu, which is as deep as menus get.
    void SetUp() override
    {
        setStringSetting(GROUP_MENU, "ConfigureHeadlines.ChildIDs", "Scrolling,CustomHomeMode,SetupHeadlines");
    }

    MenuStore mStore;
};

TEST_F(ViewerLifetime, NoViewerIsDeletedUnderItsOwnCall)
{
    ptrdiff_t existing;
    const auto goIdleInside = [&] {
        existing = viewers();
        // Where keys and posted events are dealt with in one turn, the pop-up's event loop still gets to what
        // was posted before it ends; so does this.
        press("End");
        QCoreApplication::processEvents();
    };
    // In a form, a form's warning, the warning of the root menu, which is switched off elsewhere while its row is
    // shown, and in its own soft key.
    for (const std::string keys : {"Return", "Down Return", "Down Down Return", "F2"}) {
        (new MenuViewer(nodeOf("ConfigureHeadlines"), false, nullptr, nullptr))->showView();
        existing = viewers();
        if (keys == "Down Down Return")
            MenuSettings::setEnabledMode(MenuSettings::modeOff);
        const Await<UMessageDlg> warning(goIdleInside);
        const Await<FormViewer> form([&] { keys == "Return" ? goIdleInside() : press("Down Return"); });
        press(keys);
        EXPECT_EQ(viewers(), existing) << "a viewer was deleted while its own call was running";
        Screen::settle();
        EXPECT_EQ(viewers(), 0);
    }
}

// What ends the program ends it at once, however deep the menus and whatever is up. A sub-menu closes alone.
TEST_F(ViewerLifetime, ClosingTheRootEndsTheProgram)
{
    const std::string intoSettings = "PgDown Up Return";
    for (const char* end : {"End", "Close"}) {
        MenuViewer root(nodeOf("SetupHeadlines"), true, nullptr, nullptr);
        root.showView();
        Screen::later([&] {
            press(intoSettings + " F2");
            Screen::settle();
            EXPECT_TRUE(PhoneScreen::instance()->isOnTop(&root));
            press(intoSettings + " PgDown Return " + intoSettings);
            EXPECT_EQ(viewers(), 4);
            const Await<FormViewer> form([&] { press(end, &root); });
            press("Return");
        });
        EXPECT_EQ(QCoreApplication::exec(), 0);
        Screen::later([&] { press("Close", &root); });
        EXPECT_EQ(QCoreApplication::exec(), 0) << "again, where once was too early";
        press("End"); // what the message left open
        Screen::settle();
        EXPECT_EQ(viewers(), 1);
    }
}

// Two viewers of one node share its children. A list that is behind them opens nothing but is built anew.
TEST_F(ViewerLifetime, ARowOpensOnlyWhatItWasBuiltFrom)
{
    EntrySpy first("First"), second("Second");
    NodeSpy node({});
    MenuViewer below(&node, true, nullptr, nullptr), above(&node, true, nullptr, nullptr);
    below.showView();
    above.showView();
    const std::vector<Entry*> both = {&first, &second};
    for (const auto& reloaded : {{&second, &first}, {&first}, {}, both}) {
        node.children = both;
        above.rebuildMenuView();
        node.children = reloaded;
        below.rebuildMenuView();
        takeTrace();
        press("PgDown Return");
        EXPECT_EQ(takeTrace().find("invoke") != std::string::npos, reloaded == both);
        EXPECT_EQ(rowsOf(above).size(), reloaded.size());
    }
}

} // namespace
