#include "MenuViewer.h"
#include "FormViewer.h"
#include "MenuSettings.h"
#include "PlatformRequests.h"
#include "UMessageDlg.h"
#include "ViewTest.h"

using namespace vtmenu;
using Keys = std::vector<Qt::Key>;

namespace {

constexpr Qt::Key message = Qt::Key_Close; // stands for one on the menu channel

void pressOrClose(MenuViewer& viewer, const Keys& keys)
{
    for (Qt::Key key : keys) {
        if (key == message)
            QMetaObject::invokeMethod(&viewer, "hideAndDelete");
        else
            Screen::pressAtOnce(key);
    }
}

// What is asked, in which order, before a disabled node opens, and what happens at the same moment as an answer.
TEST(MenuViewer, AsksInOrder)
{
    const std::string warned = "node.isEnabled needsWarning warningLabel warningText ";
    const std::string opened = "acceptWarning title clearChildren loadChildren "
                               "isHidden label hasValue valueText isEnabled isEnabled ";
    const std::pair<Keys, bool> cases[] = {
        {{Qt::Key_F1}, true},
        {{Qt::Key_F2}, false},
        {{message}, false},
        {{message, Qt::Key_F1}, false},
        {{Qt::Key_F1, message}, false},
        {{Qt::Key_End, Qt::Key_F1}, false},
        {{Qt::Key_F1, Qt::Key_End}, false},
    };
    EntrySpy entry("Entry");
    entry.value = "Value";
    NodeSpy node({&entry});
    node.enabled = false;
    takeTrace();
    for (const auto& [keys, accepted] : cases) {
        MenuViewer viewer(&node, true, nullptr, nullptr);
        const Await<UMessageDlg> warning([&] { pressOrClose(viewer, keys); });
        EXPECT_EQ(viewer.showView(), accepted ? 0 : -1);
        EXPECT_EQ(takeTrace(), accepted ? warned + opened : warned);
        EXPECT_EQ(PhoneScreen::instance()->isOnTop(&viewer), accepted);
    }
}

TEST(MenuViewer, ShowsAndOpensEachKind)
{
    const MenuStore store;
    qputenv("VISTANE_HANDOVER", "off");
    PlatformRequests requests;
    EntrySpy first("First"), hidden("Hidden"), greyed("Greyed"), odd(std::string("a\0b", 3)),
        unregistered("Unregistered", ENTRY_UNREGISTERED);
    first.value = "Value";
    hidden.hidden = true;
    greyed.enabled = false;
    greyed.value = "Set";
    odd.mArgMode = 1;
    odd.mArg = 7;
    NodeSpy node(
        {&first, &hidden, &greyed, &odd, &unregistered, EntryRegistry::instance()->find("AddNewChannel")});
    MenuViewer viewer(&node, true, nullptr, nullptr);
    EXPECT_EQ(viewer.showView(), 0);
    EXPECT_EQ(rowsOf(viewer), (Lines{"First|Value", "[Greyed|Set]", "a b", "Unregistered", "Add a channel"}));

    // A row knows its entry's place among the children, not among the rows.
    const std::string opened[] = {"invoke:First ", "", std::string("invoke:a\0b:7 ", 13), "", ""};
    for (const std::string& asked : opened) {
        takeTrace();
        Screen::press({Qt::Key_Return});
        EXPECT_EQ(takeTrace(), asked);
        Screen::press({Qt::Key_Down});
    }
    EXPECT_EQ(requests.take().size(), 1u) << "the link";
    EXPECT_TRUE(PhoneScreen::instance()->isOnTop(&viewer));
}

// The real menu, switched off while it is open and when it starts, and the fixed words of the soft keys.
TEST(MenuViewer, ShowsWhatIsLeftWhileTheServiceIsOffAndAsksAtTheStart)
{
    const MenuStore store;
    const auto softKeys = [](const QWidget& page) {
        const auto* keys = page.findChild<USoftKey*>();
        return (keys->text(USoftKey::Left) + u'|' + keys->text(USoftKey::Right)).toStdString();
    };
    MenuViewer viewer(nodeOf("SetupHeadlines"), true, nullptr, nullptr);
    EXPECT_EQ(viewer.showView(), 0);
    const Lines all = rowsOf(viewer);
    EXPECT_EQ(all.size(), 6U);
    EXPECT_EQ(softKeys(viewer), "|Back");
    MenuSettings::setEnabledMode(MenuSettings::modeOff);
    viewer.rebuildMenuView();
    EXPECT_EQ(rowsOf(viewer), (Lines{"Home screen headlines|Off", "Details"}));

    const Await<UMessageDlg> warning([&] {
        EXPECT_EQ(popups(), Lines{"Headlines are off Turn headlines on? (OK | Cancel)"});
        Screen::press({Qt::Key_F1});
    });
    EXPECT_EQ(viewer.showView(), 0);
    EXPECT_EQ(MenuSettings::enabledMode(), MenuSettings::modeOn);
    EXPECT_EQ(rowsOf(viewer), all);
}

TEST(FormViewer, ShowsTheChoices)
{
    FormSpy form({"One", "DISABLE:Two", "DISABLE:", "Not DISABLE:d", "disable:low", ""});
    form.current = 3;
    FormViewer viewer(&form, nullptr, QStringLiteral("Caption"), QStringLiteral("Choose:"));
    const Await<FormViewer> shown([&] {
        EXPECT_EQ(rowsOf(viewer), (Lines{"One", "[Two]", "[]", "Not DISABLE:d", "disable:low", ""}));
        // Neither Enter nor a digit on a greyed choice is an answer, nor a digit without one.
        Screen::press({Qt::Key_Up, Qt::Key_Return, Qt::Key_9, Qt::Key_2});
        EXPECT_TRUE(PhoneScreen::instance()->isOnTop(&viewer));
        EXPECT_EQ(viewer.getListBox()->radioItemChecked(), 3);
        Screen::tap({20, 10}); // beside it
    });
    EXPECT_EQ(viewer.exec(), 0);
}

// From the menu to the form: what is asked, in which order, and whether it is applied.
TEST(FormViewer, AppliesWhatIsConfirmed)
{
    const Keys none = {}, confirm = {Qt::Key_Down, Qt::Key_F1};
    const std::string opened = "optionCount title instructText optionCount currentIndex ";
    const std::string warned = opened + "needsWarning:1 warningLabel warningText ";
    const std::string rebuilt =
        "clearChildren loadChildren isHidden label hasValue isEnabled isEnabled optionCount ";
    const std::string applied = "setValue:1 " + rebuilt + "currentIndex ";
    const struct
    {
        const char* what;
        Keys keys;
        Keys warningKeys;
        std::string asked;
    } cases[] = {
        {"only one choice", none, none, "optionCount setValue:0 " + rebuilt},
        {"another choice", {Qt::Key_Down, Qt::Key_Return}, none, opened + "needsWarning:1 " + applied},
        {"by its digit", {Qt::Key_2}, none, opened + "needsWarning:1 " + applied},
        {"the same choice", {Qt::Key_F1}, none, opened + "needsWarning:0 setValue:0 "},
        {"given up", {Qt::Key_Down, Qt::Key_F2}, none, opened},
        {"confirmed as the phone goes idle", {Qt::Key_Down, Qt::Key_F1, Qt::Key_End}, none, opened},
        {"warning accepted", confirm, {Qt::Key_F1}, warned + applied},
        {"warning refused", confirm, {Qt::Key_F2}, warned},
        {"accepted as the phone goes idle", confirm, {Qt::Key_F1, Qt::Key_End}, warned},
        {"accepted as the menu is closed", confirm, {Qt::Key_F1, message}, warned},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        FormSpy form(c.keys.empty() ? Lines{"Only"} : Lines{"One", "Two"});
        form.warns = !c.warningKeys.empty();
        FormAdapter adapter(&form);
        EntryRegistry::instance()->add("Form", &adapter, ENTRY_FORM);
        EntrySpy first("First");
        NodeSpy node({&first, &adapter});
        MenuViewer menu(&node, true, nullptr, nullptr);
        menu.showView();
        Screen::press({Qt::Key_Down});
        takeTrace();
        const Await<FormViewer> choices([&] { Screen::press(c.keys); });
        const Await<UMessageDlg> warning([&] { pressOrClose(menu, c.warningKeys); });
        Screen::press({Qt::Key_Return});
        EXPECT_EQ(takeTrace(), c.asked);
        EXPECT_EQ(menu.findChild<UListBox*>()->currentRow(), 1) << "the line it was opened from";
        Screen::settle();
    }
}

} // namespace
