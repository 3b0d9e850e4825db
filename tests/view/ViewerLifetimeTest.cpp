#include "FormViewer.h"
#include "MenuSettings.h"
#include "MenuViewer.h"
#include "UMessageDlg.h"
#include "ViewTest.h"

#include <QPointer>

using namespace vtmenu;

namespace {

// The viewers that exist, shown or not.
ptrdiff_t viewers()
{
    return std::ranges::count_if(QApplication::allWidgets(),
                                 [](QWidget* widget) { return qobject_cast<MenuViewer*>(widget); });
}

void intoSettings()
{
    Screen::press({Qt::Key_PageDown, Qt::Key_Up, Qt::Key_Return});
}

// A settings menu that leads back to the root menu, which is as deep as menus get.
struct DeepMenu : MenuStore
{
    DeepMenu()
    {
        setStringSetting(GROUP_MENU, "ConfigureHeadlines.ChildIDs",
                         "Scrolling, CustomHomeMode, SetupHeadlines");
    }
};

TEST(ViewerLifetime, NoViewerIsDeletedUnderItsOwnCall)
{
    const DeepMenu store;
    ptrdiff_t existing;
    const auto goIdleInside = [&] {
        existing = viewers();
        // Where keys and posted events are dealt with in one turn, the pop-up's event loop still gets to what
        // was posted before it ends; so does this.
        Screen::pressAtOnce(Qt::Key_End);
        QCoreApplication::processEvents();
    };
    // The pop-up is a form, a form's warning, or the warning of the root menu, which is switched off elsewhere
    // while its row is shown.
    for (const int row : {0, 1, 2}) {
        const QPointer viewer = new MenuViewer(nodeOf("ConfigureHeadlines"), false, nullptr, nullptr);
        viewer->showView();
        existing = -1;
        if (row == 2)
            MenuSettings::setEnabledMode(MenuSettings::modeOff);
        Screen::press(std::vector<Qt::Key>(row, Qt::Key_Down));
        const Await<UMessageDlg> warning(goIdleInside);
        const Await<FormViewer> form([&] {
            row == 0 ? goIdleInside() : Screen::press({Qt::Key_Down, Qt::Key_Return});
        });
        Screen::pressAtOnce(Qt::Key_Return);
        EXPECT_EQ(viewers(), existing) << "a viewer was deleted while its own call was running";
        ASSERT_TRUE(viewer);
        Screen::settle();
        EXPECT_EQ(viewers(), 0);
    }
}

// What ends the program ends it at once, however deep the menus and whatever is up.
TEST(ViewerLifetime, ClosingTheRootEndsTheProgram)
{
    const DeepMenu store;
    for (const bool byMessage : {false, true}) {
        MenuViewer root(nodeOf("SetupHeadlines"), true, nullptr, nullptr);
        ASSERT_EQ(root.showView(), 0);
        Screen::later([&] {
            intoSettings();
            Screen::press({Qt::Key_PageDown, Qt::Key_Return});
            intoSettings();
            EXPECT_EQ(viewers(), 4);
            const Await<FormViewer> form([&] {
                if (byMessage)
                    QMetaObject::invokeMethod(&root, "hideAndDelete");
                else
                    Screen::pressAtOnce(Qt::Key_End);
            });
            Screen::press({Qt::Key_Return});
        });
        EXPECT_EQ(QCoreApplication::exec(), 0);
        Screen::press({Qt::Key_End}); // what the message left open
        Screen::settle();
        EXPECT_EQ(viewers(), 1);
    }
}

TEST(ViewerLifetime, ClosingTheRootAgainEndsTheProgramWhereOnceWasTooEarly)
{
    const MenuStore store;
    MenuViewer root(nodeOf("SetupHeadlines"), true, nullptr, nullptr);
    const auto close = [&] { QMetaObject::invokeMethod(&root, "hideAndDelete"); };
    close();
    Screen::later(close);
    EXPECT_EQ(QCoreApplication::exec(), 0);
}

TEST(ViewerLifetime, ASubMenuClosesAlone)
{
    const DeepMenu store;
    MenuViewer root(nodeOf("SetupHeadlines"), true, nullptr, nullptr);
    root.showView();
    intoSettings();
    const QPointer<MenuViewer> settings = onTop<MenuViewer>();
    Screen::pressAtOnce(Qt::Key_F2);
    ASSERT_TRUE(settings) << "deleted in its own soft key";
    Screen::settle();
    EXPECT_FALSE(settings);
    EXPECT_TRUE(PhoneScreen::instance()->isOnTop(&root));
}

// Two viewers of one node share its children. A list that is behind them opens nothing but is built anew.
TEST(ViewerLifetime, ARowOpensOnlyWhatItWasBuiltFrom)
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
        Screen::press({Qt::Key_PageDown, Qt::Key_Return});
        EXPECT_EQ(takeTrace().find("invoke") != std::string::npos, reloaded == both);
        EXPECT_EQ(rowsOf(above).size(), reloaded.size());
    }
}

} // namespace
