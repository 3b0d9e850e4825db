#include "FormViewer.h"
#include "MenuSettings.h"
#include "MenuStore.h"
#include "MenuViewer.h"
#include "OnScreen.h"
#include "Screen.h"
#include "Spies.h"
#include "UApplication.h"
#include "UMessageDlg.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

#include <optional>

using vtmenu::FormViewer;
using vtmenu::MenuViewer;
using Keys = std::initializer_list<Qt::Key>;

namespace {

TEST(FormViewer, NamesItself)
{
    EXPECT_STREQ(FormViewer::staticMetaObject.className(), "vtmenu::FormViewer");
    EXPECT_STREQ(FormViewer::staticMetaObject.superClass()->className(), "USingleSelectDlg");
}

TEST(FormViewer, ShowsTheChoices)
{
    FormSpy form({"One", "DISABLE:Two", "DISABLE:", "Not DISABLE:d", "disable:low", ""});
    form.current = 3;
    FormViewer viewer(&form, nullptr, QStringLiteral("Caption"), QStringLiteral("Choose:"));
    Screen::later([&] {
        EXPECT_EQ(rowsOf(&viewer),
                  (std::vector<std::string>{"One", "[Two]", "[]", "Not DISABLE:d", "disable:low", ""}));
        EXPECT_EQ(viewer.getListBox()->radioItemChecked(), 3);
        // Enter on a greyed choice is no answer.
        Screen::press({Qt::Key_Up, Qt::Key_Return});
        EXPECT_TRUE(PhoneScreen::instance()->isOnTop(&viewer));
        EXPECT_EQ(viewer.getListBox()->radioItemChecked(), 3);
        Screen::press({Qt::Key_F2});
    });
    EXPECT_EQ(viewer.exec(), 0);
}

// From the menu to the setting: what is asked, in which order, and what is written.
TEST(FormViewer, AppliesWhatIsConfirmed)
{
    const std::string opened = "optionCount title instructText optionCount currentIndex ";
    const std::string rebuilt = "clearChildren loadChildren optionCount currentIndex ";
    const struct
    {
        const char* what;
        bool warns;
        Keys keys;
        Keys warningKeys; // empty: no warning comes up
        std::string asked;
    } cases[] = {
        {"another choice", false, {Qt::Key_Down, Qt::Key_Return}, {}, "needsWarning:1 setValue:1 " + rebuilt},
        {"the same choice", false, {Qt::Key_F1}, {}, "needsWarning:0 setValue:0 "},
        {"given up", true, {Qt::Key_Down, Qt::Key_F2}, {}, ""},
        {"red key", true, {Qt::Key_Down, Qt::Key_End}, {}, ""},
        {"warning accepted",
         true,
         {Qt::Key_Down, Qt::Key_F1},
         {Qt::Key_F1},
         "needsWarning:1 warningLabel warningText setValue:1 " + rebuilt},
        {"warning refused",
         true,
         {Qt::Key_Down, Qt::Key_F1},
         {Qt::Key_F2},
         "needsWarning:1 warningLabel warningText "},
        {"confirmed as the phone goes idle", true, {Qt::Key_Down, Qt::Key_F1, Qt::Key_End}, {}, ""},
        {"warning accepted as the phone goes idle",
         true,
         {Qt::Key_Down, Qt::Key_F1},
         {Qt::Key_F1, Qt::Key_End},
         "needsWarning:1 warningLabel warningText "},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        FormSpy form({"One", "Two"});
        form.warns = c.warns;
        FormAdapter adapter(&form);
        EntryRegistry::instance()->add("Form", &adapter, ENTRY_FORM);
        NodeSpy node({&adapter});
        MenuViewer menu(&node, true, nullptr, nullptr);
        menu.showView();
        takeTrace();
        std::optional<Await<UMessageDlg>> warning;
        if (c.warningKeys.size() > 0)
            warning.emplace([&] { Screen::press(c.warningKeys); });
        const Await<FormViewer> choices([&] { Screen::press(c.keys); });
        Screen::press({Qt::Key_Return});
        EXPECT_EQ(takeTrace(), opened + c.asked);
        Screen::settle();
    }
}

TEST(FormViewer, AppliesNoChoiceWhenNoneIsChecked)
{
    FormSpy form({"One", "Two"});
    form.current = 7;
    FormViewer viewer(&form, nullptr, QString(), QString());
    QSignalSpy changed(&viewer, SIGNAL(valueChanged()));
    viewer.show();
    takeTrace();
    viewer.applyChoice();
    EXPECT_EQ(takeTrace(), "needsWarning:-1 setValue:-1 ");
    EXPECT_EQ(changed.size(), 1);
}

TEST(FormViewer, SwitchesTheServiceOff)
{
    const struct
    {
        const char* what;
        const char* before;
        Keys warningKeys;
        const char* after;
        size_t rows;
    } cases[] = {
        {"accepted", MenuSettings::modeOn, {Qt::Key_F1}, MenuSettings::modeOff, 2},
        {"refused", MenuSettings::modeOn, {Qt::Key_F2}, MenuSettings::modeOn, 6},
        {"from the hidden mode", MenuSettings::modeHidden, {Qt::Key_F1}, MenuSettings::modeOff, 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const MenuStore store;
        MenuSettings::setEnabledMode(c.before);
        MenuViewer menu(nodeOf("SetupHeadlines"), true, nullptr, nullptr);
        menu.showView();
        const Await<UMessageDlg> warning([&] { Screen::press(c.warningKeys); });
        const Await<FormViewer> choices([] { Screen::press({Qt::Key_Down, Qt::Key_Return}); });
        Screen::press({Qt::Key_Return});
        EXPECT_EQ(MenuSettings::enabledMode(), c.after);
        EXPECT_EQ(rowsOf(&menu).size(), c.rows);
        EXPECT_EQ(rowsOf(&menu)[0],
                  std::string("Home screen headlines|") + (c.after == MenuSettings::modeOff ? "Off" : "On"));
    }
}

// The other entries are not asked again, so nothing but a warning is to be seen.
TEST(FormViewer, WarnsOfOffThoughItIsOffAlready)
{
    const MenuStore store;
    MenuViewer menu(nodeOf("SetupHeadlines"), true, nullptr, nullptr);
    menu.showView();
    MenuSettings::setEnabledMode(MenuSettings::modeOff);
    const Await<UMessageDlg> warning([] { Screen::press({Qt::Key_F1}); });
    const Await<FormViewer> choices([] { Screen::press({Qt::Key_F1}); });
    Screen::press({Qt::Key_Return});
    EXPECT_EQ(MenuSettings::enabledMode(), MenuSettings::modeOff);
    EXPECT_EQ(rowsOf(&menu).size(), 6u);
}

} // namespace
