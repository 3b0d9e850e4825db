#include "MenuViewer.h"
#include "FormViewer.h"
#include "LivePages.h"
#include "UMessageDlg.h"
#include "ViewTest.h"

#include <QSignalSpy>

using namespace std::string_literals;
using namespace vtmenu;

namespace {

// What is asked, in which order, before a disabled node opens, and what happens at the same moment as an answer.
TEST(MenuViewer, AsksInOrder)
{
    EntrySpy entry("Entry", "Value");
    NodeSpy node({&entry});
    node.enabled = false;
    for (const std::string keys : {"F1", "F2", "Close", "Close F1", "F1 Close", "End F1", "F1 End"}) {
        const bool accepted = keys == "F1";
        MenuViewer viewer(&node, true, nullptr, nullptr);
        const Await<UMessageDlg> warning([&] {
            EXPECT_EQ(popups(), Lines{"Off Turn on? (OK | Cancel)"});
            press(keys, &viewer);
        });
        takeTrace();
        EXPECT_EQ(viewer.showView(), accepted ? 0 : -1);
        EXPECT_EQ(takeTrace(), "node.isEnabled needsWarning warningLabel warningText "s +
                                   (accepted ? "acceptWarning title clearChildren loadChildren "
                                               "isHidden label hasValue valueText isEnabled isEnabled "
                                             : ""));
        EXPECT_EQ(PhoneScreen::instance()->isOnTop(&viewer), accepted);
    }
}

TEST(MenuViewer, ShowsAndInvokesActions)
{
    EntrySpy first("First", "Value"), hidden("Hidden"), greyed("Greyed", "Set"), odd("a\0b"s),
        unregistered("Unregistered", {}, ENTRY_UNREGISTERED);
    hidden.hidden = true;
    greyed.enabled = false;
    odd.mArgMode = 1;
    odd.mArg = 7;
    NodeSpy node({&first, &hidden, &greyed, &odd, &unregistered});
    MenuViewer viewer(&node, true, nullptr, nullptr);
    EXPECT_EQ(viewer.showView(), 0);
    EXPECT_EQ(rowsOf(viewer), (Lines{"First|Value", "[Greyed|Set]", "a b", "Unregistered"}));
    const auto* keys = viewer.findChild<USoftKey*>();
    EXPECT_EQ(keys->text(USoftKey::Left) + '|' + keys->text(USoftKey::Right), "|Back");

    // A row knows its entry's place among the children, not among the rows.
    takeTrace();
    press("Return Down Return Down Return Down Return");
    EXPECT_EQ(takeTrace(), "invoke:First invoke:a\0b:7 "s);
}

TEST(MenuViewer, FollowsChangesAndKeepsItsPlace)
{
    EntrySpy a("A"), b("B"), c("C"), d("D");
    NodeSpy node({&a, &b, &c});
    MenuViewer viewer(&node, true, nullptr, nullptr);
    auto* const pages = LivePages::instance();
    emit pages->changed();
    EXPECT_EQ(takeTrace(), "") << "not before it is shown";
    viewer.showView();
    press("Down Return Down"); // B was opened, C is highlighted
    const auto* list = viewer.findChild<UListBox*>();
    const auto* row = list->item(2);
    emit pages->changed();
    EXPECT_EQ(list->item(2), row) << "nothing has changed";
    for (const auto& [children, title, highlighted] :
         std::vector<std::tuple<std::vector<Entry*>, const char*, int>>{
             {{&d, &a, &b, &c}, "One more above", 3},
             {{&c, &b}, "It moves up", 0},
             {{&b, &d}, "It goes", 0},
             {{}, "All go", -1},
             {{&a, &b}, "Some come", 0},
         }) {
        node.children = children;
        node.caption = title;
        emit pages->changed();
        EXPECT_EQ(viewer.mainWidgetTitle(), title);
        EXPECT_EQ(list->count(), children.size()) << title;
        EXPECT_EQ(list->currentRow(), highlighted) << title;
    }

    // While a person answers a form it stands for what was on the page.
    FormSpy form({"One", "Two"});
    FormAdapter adapter(&form);
    EntryRegistry::instance()->add("Form", &adapter, ENTRY_FORM);
    node.children = {&adapter};
    emit pages->changed();
    QSignalSpy told(pages, &LivePages::changed);
    const Await<FormViewer> shown([&] {
        pages->handleEvent(Vt_Event(NR_Constants::EVENT_NOTIFY_STORAGE_STATUS));
        QTest::qWait(50); // longer than the pages wait, whatever the clock does
        EXPECT_TRUE(told.isEmpty());
        press("F2");
    });
    press("Return");
    EXPECT_TRUE(told.count() == 1 || told.wait());
}

// From the menu to the form: what is shown and asked, in which order, and whether it is applied.
TEST(FormViewer, AppliesWhatIsConfirmed)
{
    const Lines choices = {"One", "Two", "DISABLE:Three", "DISABLE:", "Not DISABLE:d", "disable:low", ""};
    const Lines rows = {"One", "Two", "[Three]", "[]", "Not DISABLE:d", "disable:low", ""};
    const std::string opened = "optionCount title instructText optionCount currentIndex ";
    const std::string warned = opened + "needsWarning:0 warningLabel warningText ";
    const std::string rebuilt =
        "clearChildren loadChildren isHidden label hasValue isEnabled isEnabled optionCount ";
    const std::string applied = "setValue:0 " + rebuilt + "currentIndex ";
    // Keys in the form and in its warning, and what is asked.
    for (const auto& [keys, answer, asked] : std::vector<std::array<std::string, 3>>{
             {"", "", "optionCount setValue:0 " + rebuilt}, // there is only one choice
             {"Up Return", "", opened + "needsWarning:0 " + applied},
             {"1", "", opened + "needsWarning:0 " + applied},
             {"F1", "", opened + "needsWarning:1 setValue:1 "}, // the one in force
             {"Down Return F1 9 3", "", opened},                // greyed or none
             {"Up F2", "", opened},
             {"Up F1 End", "", opened},
             {"Up F1", "F1", warned + applied},
             {"Up F1", "F2", warned},
             {"Up F1", "F1 End", warned},
             {"Up F1", "F1 Close", warned},
         }) {
        SCOPED_TRACE(keys + ", " + answer);
        FormSpy form(keys.empty() ? Lines{"Only"} : choices);
        form.warns = !answer.empty();
        FormAdapter adapter(&form);
        EntryRegistry::instance()->add("Form", &adapter, ENTRY_FORM);
        EntrySpy first("First");
        NodeSpy node({&first, &adapter});
        MenuViewer menu(&node, true, nullptr, nullptr);
        menu.showView();
        press("Down");
        takeTrace();
        const Await<FormViewer> shown([&] {
            EXPECT_EQ(rowsOf(*onTop<FormViewer>()), rows);
            press(keys);
            if (auto* viewer = onTop<FormViewer>()) {
                EXPECT_EQ(viewer->getListBox()->radioItemChecked(), 1);
                Screen::tap({20, 10}); // beside it
            }
        });
        const Await<UMessageDlg> warning([&] { press(answer, &menu); });
        press("Return");
        EXPECT_EQ(takeTrace(), asked);
        EXPECT_EQ(menu.findChild<UListBox*>()->currentRow(), 1) << "the line it was opened from";
        Screen::settle();
    }
}

} // namespace
