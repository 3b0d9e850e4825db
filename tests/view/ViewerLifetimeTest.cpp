#include "FormViewer.h"
#include "MenuSettings.h"
#include "MenuStore.h"
#include "MenuViewer.h"
#include "OnScreen.h"
#include "Screen.h"
#include "SettingHelper.h"
#include "Spies.h"
#include "UApplication.h"
#include "UMessageDlg.h"

#include <QKeyEvent>
#include <QPointer>
#include <QTimer>
#include <QWindow>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

using vtmenu::FormViewer;
using vtmenu::MenuViewer;

namespace {

// A key press that returns as soon as it is dealt with, before the event loop runs again.
void strike(Qt::Key key)
{
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(PhoneScreen::instance()->windowHandle(), &press);
}

// The viewers that exist, shown or not.
std::vector<MenuViewer*> viewers()
{
    std::vector<MenuViewer*> found;
    for (QWidget* widget : QApplication::allWidgets())
        if (auto* viewer = qobject_cast<MenuViewer*>(widget))
            found.push_back(viewer);
    return found;
}

void goIdle()
{
    emit UApplication::instance()->askReturnToIdle(5);
}

void close(MenuViewer* viewer)
{
    QMetaObject::invokeMethod(viewer, "hideAndDelete");
}

// A settings menu that leads back to the root menu, which is as deep as menus get.
class DeepMenu : public MenuStore
{
public:
    DeepMenu()
    {
        setStringSetting(GROUP_MENU, "ConfigureHeadlines.ChildIDs",
                         "Scrolling, CustomHomeMode, SetupHeadlines");
    }
};

// The pop-ups that a sub-menu on top of the screen can have up, its own call beneath them. `open` returns when the
// pop-up is gone.
const struct
{
    const char* what;
    void (*open)(const std::function<void()>& whenUp);
} popups[] = {
    {"form",
     [](const auto& whenUp) {
         const Await<FormViewer> form(whenUp);
         strike(Qt::Key_Return);
     }},
    {"form's warning",
     [](const auto& whenUp) {
         const Await<UMessageDlg> warning(whenUp);
         const Await<FormViewer> form([] { Screen::press({Qt::Key_Down, Qt::Key_Return}); });
         Screen::press({Qt::Key_Down});
         strike(Qt::Key_Return);
     }},
    // Switched off elsewhere while the list is shown, the root menu's row can still be chosen.
    {"sub-menu's warning",
     [](const auto& whenUp) {
         MenuSettings::setEnabledMode(MenuSettings::modeOff);
         const Await<UMessageDlg> warning(whenUp);
         Screen::press({Qt::Key_Down, Qt::Key_Down});
         strike(Qt::Key_Return);
     }},
};

TEST(ViewerLifetime, NoViewerIsDeletedUnderItsOwnCall)
{
    for (const auto& popup : popups) {
        SCOPED_TRACE(popup.what);
        const DeepMenu store;
        const QPointer<MenuViewer> viewer =
            new MenuViewer(nodeOf("ConfigureHeadlines"), false, nullptr, nullptr);
        viewer->showView();
        size_t existing = 0;
        popup.open([&] {
            existing = viewers().size();
            // Where keys and posted events are dealt with in one turn, the pop-up's event loop still gets to what
            // was posted before it ends; so does this.
            goIdle();
            QCoreApplication::processEvents();
        });
        EXPECT_EQ(viewers().size(), existing) << "a viewer was deleted while its own call was running";
        ASSERT_TRUE(viewer);
        Screen::settle();
        EXPECT_TRUE(viewers().empty());
    }
}

// What ends the program ends it at once, however deep the menus and whatever is up.
TEST(ViewerLifetime, ClosingTheRootEndsTheProgram)
{
    const DeepMenu store;
    const auto intoSettings = [] { Screen::press({Qt::Key_PageDown, Qt::Key_Up, Qt::Key_Return}); };
    const struct
    {
        const char* what;
        std::function<void(MenuViewer*)> close;
    } endings[] = {
        {"return to idle", [](MenuViewer*) { goIdle(); }},
        {"red key", [](MenuViewer*) { Screen::press({Qt::Key_End}); }},
        {"message on the menu channel", close},
    };
    for (const auto& ending : endings) {
        SCOPED_TRACE(ending.what);
        const auto root = std::make_unique<MenuViewer>(nodeOf("SetupHeadlines"), true, nullptr, nullptr);
        ASSERT_EQ(root->showView(), 0);
        Screen::later([&] {
            intoSettings();
            Screen::press({Qt::Key_PageDown, Qt::Key_Return});
            intoSettings();
            EXPECT_EQ(viewers().size(), 4u);
            const Await<FormViewer> form([&] { ending.close(root.get()); });
            Screen::press({Qt::Key_Return});
        });
        QTimer watchdog;
        QObject::connect(&watchdog, &QTimer::timeout, [] { QCoreApplication::exit(1); });
        watchdog.start(5000);
        EXPECT_EQ(QCoreApplication::exec(), 0);
        goIdle(); // what the message left open
        Screen::settle();
        EXPECT_EQ(viewers().size(), 1u);
    }
}

TEST(ViewerLifetime, ASubMenuClosesAlone)
{
    const DeepMenu store;
    const auto root = std::make_unique<MenuViewer>(nodeOf("SetupHeadlines"), true, nullptr, nullptr);
    root->showView();
    Screen::press({Qt::Key_PageDown, Qt::Key_Up, Qt::Key_Return});
    const QPointer<MenuViewer> settings = onTop<MenuViewer>();
    ASSERT_NE(settings, root.get());
    // The second request finds nothing left to do.
    strike(Qt::Key_F2);
    ASSERT_TRUE(settings) << "deleted in its own soft key";
    close(settings);
    close(settings);
    Screen::settle();
    EXPECT_FALSE(settings);
    EXPECT_TRUE(PhoneScreen::instance()->isOnTop(root.get()));
}

// Two viewers of one node share its children. A list that is behind them opens nothing but is built anew.
TEST(ViewerLifetime, ARowOpensOnlyWhatItWasBuiltFrom)
{
    EntrySpy first("First"), second("Second");
    NodeSpy node({&first, &second});
    MenuViewer below(&node, true, nullptr, nullptr);
    below.showView();
    MenuViewer above(&node, true, nullptr, nullptr);
    above.showView();

    for (const std::vector<Entry*>& children : {std::vector<Entry*>{&second, &first}, {&first}, {}}) {
        node.children = {&first, &second};
        above.rebuildMenuView();
        node.children = children;
        below.rebuildMenuView();
        takeTrace();
        Screen::press({Qt::Key_Down, Qt::Key_Return});
        EXPECT_EQ(takeTrace().find("invoke"), std::string::npos);
        EXPECT_EQ(listOf(&above)->count(), static_cast<int>(children.size()));
    }
    node.children = {&first, &second};
    above.rebuildMenuView();
    below.rebuildMenuView();
    takeTrace();
    Screen::press({Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(takeTrace(), "invoke:Second ") << "reloaded alike, a row still opens";
}

} // namespace
