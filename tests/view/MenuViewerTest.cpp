#include "MenuViewer.h"
#include "DetailViewer.h"
#include "FormViewer.h"
#include "LinkEntry.h"
#include "MenuSettings.h"
#include "MenuStore.h"
#include "OnScreen.h"
#include "PlatformRequests.h"
#include "Screen.h"
#include "SettingHelper.h"
#include "Spies.h"
#include "UApplication.h"
#include "UMessageDlg.h"

#include <QMetaMethod>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

using vtmenu::FormViewer;
using vtmenu::MenuViewer;
using Rows = std::vector<std::string>;

namespace {

std::unique_ptr<MenuViewer> rootViewer(MenuNode* node)
{
    return std::make_unique<MenuViewer>(node, true, nullptr, nullptr);
}

TEST(MenuViewer, NamesItselfAndItsSlots)
{
    const QMetaObject& meta = MenuViewer::staticMetaObject;
    EXPECT_STREQ(meta.className(), "vtmenu::MenuViewer");
    EXPECT_STREQ(meta.superClass()->className(), "UKbMainWidget");
    const struct
    {
        const char* signature;
        QMetaMethod::MethodType type;
        QMetaMethod::Access access;
    } methods[] = {
        {"rebuildMenuView()", QMetaMethod::Slot, QMetaMethod::Public},
        {"openItem(int)", QMetaMethod::Slot, QMetaMethod::Private},
        {"hideAndDelete()", QMetaMethod::Slot, QMetaMethod::Private},
        {"slotReturnToIdle(int)", QMetaMethod::Slot, QMetaMethod::Private},
        {"deleteMe()", QMetaMethod::Slot, QMetaMethod::Private},
        {"valueChanged()", QMetaMethod::Signal, QMetaMethod::Public},
    };
    for (const auto& expected : methods) {
        const QMetaMethod method = meta.method(meta.indexOfMethod(expected.signature));
        ASSERT_TRUE(method.isValid()) << expected.signature;
        EXPECT_EQ(method.methodType(), expected.type) << expected.signature;
        EXPECT_EQ(method.access(), expected.access) << expected.signature;
    }
}

TEST(MenuViewer, AsksInOrder)
{
    EntrySpy entry("Entry");
    entry.value = "Value";
    NodeSpy node({&entry});
    node.enabled = false;
    const auto viewer = rootViewer(&node);
    EXPECT_EQ(takeTrace(), "");

    Screen::later([] { Screen::press({Qt::Key_F1}); });
    EXPECT_EQ(viewer->showView(), 0);
    EXPECT_EQ(takeTrace(), "node.isEnabled needsWarning warningLabel warningText acceptWarning title "
                           "clearChildren loadChildren isHidden label hasValue valueText isEnabled isEnabled ");
    EXPECT_EQ(viewer->mainWidgetTitle(), "Title");
}

TEST(MenuViewer, ShowsWhatTheEntriesAnswer)
{
    EntrySpy first("First"), hidden("Hidden"), greyed("Greyed"), odd(std::string("a\0b", 3));
    first.value = "Value";
    hidden.hidden = true;
    greyed.enabled = false;
    greyed.value = "Set";
    NodeSpy node({&first, &hidden, &greyed, &odd});
    const auto viewer = rootViewer(&node);
    ASSERT_EQ(viewer->showView(), 0);
    EXPECT_EQ(rowsOf(viewer.get()), (Rows{"First|Value", "[Greyed|Set]", "a b"}));

    // A row knows its entry's place among the children, not among the rows.
    takeTrace();
    Screen::press({Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(takeTrace(), "") << "a greyed row opens nothing";
    Screen::press({Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(takeTrace(), std::string("invoke:a\0b ", 11));
    EXPECT_EQ(listOf(viewer.get())->item(2)->getReservedData(), 3);
}

TEST(MenuViewer, OpensByKind)
{
    class LinkSpy : public LinkEntry
    {
    public:
        LinkSpy() : LinkEntry("https://example.org/a b")
        {
            EntryRegistry::instance()->add("LinkSpy", this, ENTRY_LINK);
        }
        bool isHidden() const override { return false; }
        bool isEnabled() const override { return true; }
        std::string label() const override { return "Link"; }
    };
    const MenuStore store;
    qputenv("VISTANE_HANDOVER", "off");
    PlatformRequests requests;
    LinkSpy link;
    EntrySpy plain("Plain"), numbered("Numbered"), unregistered("Unregistered", ENTRY_UNREGISTERED);
    numbered.mArgMode = 1;
    numbered.mArg = 7;
    NodeSpy node({&plain, &numbered, &unregistered, &link});
    const auto viewer = rootViewer(&node);
    viewer->showView();
    takeTrace();
    Screen::press({Qt::Key_Return, Qt::Key_Down, Qt::Key_Return, Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(takeTrace(), "invoke:Plain invoke:Numbered:7 ");
    Screen::press({Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(requests.take(), (Rows{"loadURL|https://example.org/a b"}));
    EXPECT_TRUE(PhoneScreen::instance()->isOnTop(viewer.get()));
}

TEST(MenuViewer, OpensMenusAndPagesAboveItself)
{
    const MenuStore store;
    setStringSetting(GROUP_MENU, "ConfigureHeadlines.ChildIDs", "Scrolling, Download");
    const auto root = rootViewer(nodeOf("SetupHeadlines"));
    ASSERT_EQ(root->showView(), 0);
    const Rows before = rowsOf(root.get());
    EXPECT_EQ(before, (Rows{"Home screen headlines|On", "How to use headlines", "Add a channel",
                            "Manage my channels", "Settings", "Details"}));

    Screen::press({Qt::Key_PageDown, Qt::Key_Return});
    EXPECT_TRUE(onTop<vtmenu::DetailViewer>());
    Screen::press({Qt::Key_F2});
    Screen::settle();

    Screen::press({Qt::Key_Up, Qt::Key_Return});
    const auto* settings = onTop<MenuViewer>();
    ASSERT_TRUE(settings && settings != root.get());
    EXPECT_EQ(settings->mainWidgetTitle(), "Settings");
    EXPECT_EQ(rowsOf(settings), (Rows{"Scrolling speed|Medium", "Download|Always"}));

    // The list beneath shows what it showed, whatever was changed meanwhile.
    setBoolSetting(GROUP_MENU, "HowToUse.visible", false);
    Screen::press({Qt::Key_F2});
    Screen::settle();
    EXPECT_TRUE(PhoneScreen::instance()->isOnTop(root.get()));
    EXPECT_EQ(rowsOf(root.get()), before);
}

TEST(MenuViewer, ShowsAChangeAndKeepsTheLine)
{
    const MenuStore store;
    const auto viewer = rootViewer(nodeOf("ConfigureHeadlines"));
    viewer->showView();
    const Await<FormViewer> form([] { Screen::press({Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}); });
    Screen::press({Qt::Key_Down, Qt::Key_Return});
    EXPECT_EQ(rowsOf(viewer.get())[1], "Download|Never");
    EXPECT_EQ(listOf(viewer.get())->currentRow(), 1);
    EXPECT_EQ(getIntSetting(GROUP_SERVICE, "DownloadOption"), 2);

    // Where the list has become shorter than that, its last line.
    setBoolSetting(GROUP_MENU, "Download.visible", false);
    setBoolSetting(GROUP_MENU, "Profile.visible", false);
    viewer->rebuildMenuView();
    EXPECT_EQ(rowsOf(viewer.get()), (Rows{"Scrolling speed|Medium"}));
    EXPECT_EQ(listOf(viewer.get())->currentRow(), 0);
}

TEST(MenuViewer, AppliesAFormOfOneChoiceAtOnce)
{
    FormSpy form({"Only"});
    form.warns = true;
    FormAdapter adapter(&form);
    EntryRegistry::instance()->add("OneChoice", &adapter, ENTRY_FORM);
    NodeSpy node({&adapter});
    const auto viewer = rootViewer(&node);
    viewer->showView();
    EXPECT_EQ(rowsOf(viewer.get()), (Rows{"Form"}));
    takeTrace();
    Screen::press({Qt::Key_Return});
    EXPECT_EQ(takeTrace(), "optionCount setValue:0 clearChildren loadChildren optionCount ");
}

TEST(MenuViewer, AsksBeforeADisabledNodeOpens)
{
    const auto idle = [] { emit UApplication::instance()->askReturnToIdle(5); };
    const auto closeRoot = [](MenuViewer& viewer) { QMetaObject::invokeMethod(&viewer, "hideAndDelete"); };
    const struct
    {
        const char* what;
        std::function<void(MenuViewer&)> answer;
        int result;
    } cases[] = {
        {"accepted", [](MenuViewer&) { Screen::press({Qt::Key_F1}); }, 0},
        {"refused", [](MenuViewer&) { Screen::press({Qt::Key_F2}); }, -1},
        {"red key", [](MenuViewer&) { Screen::press({Qt::Key_End}); }, -1},
        {"message on the menu channel", closeRoot, -1},
        // A key that comes after the end finds nothing to accept any more.
        {"message, then a key", [&](MenuViewer& v) { closeRoot(v), Screen::press({Qt::Key_F1}); }, -1},
        {"return to idle, then a key", [&](MenuViewer&) { idle(), Screen::press({Qt::Key_F1}); }, -1},
        {"accepted and return to idle", [&](MenuViewer&) { Screen::press({Qt::Key_F1}), idle(); }, -1},
        {"accepted and message", [&](MenuViewer& v) { Screen::press({Qt::Key_F1}), closeRoot(v); }, -1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const MenuStore store;
        MenuSettings::setEnabledMode(MenuSettings::modeOff);
        const auto viewer = rootViewer(nodeOf("SetupHeadlines"));
        Screen::later([&] {
            EXPECT_TRUE(onTop<UMessageDlg>());
            c.answer(*viewer);
        });
        EXPECT_EQ(viewer->showView(), c.result);
        EXPECT_EQ(MenuSettings::enabledMode(), c.result == 0 ? MenuSettings::modeOn : MenuSettings::modeOff);
        EXPECT_EQ(PhoneScreen::instance()->isOnTop(viewer.get()), c.result == 0);
        if (c.result == 0) {
            EXPECT_EQ(listOf(viewer.get())->count(), 6);
        }
    }
}

TEST(MenuViewer, OpensANodeThatNeedsNoWarning)
{
    const MenuStore store;
    MenuSettings::setEnabledMode(MenuSettings::modeHidden);
    setBoolSetting(GROUP_MENU, "SetupHeadlines.enabled", false);
    const auto viewer = rootViewer(nodeOf("SetupHeadlines"));
    EXPECT_EQ(viewer->showView(), 0);
    EXPECT_EQ(rowsOf(viewer.get()).size(), 5u) << "all but the help";
}

} // namespace
