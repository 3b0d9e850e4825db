#include "Campaign.h"
#include "DetailViewer.h"
#include "MenuSettings.h"
#include "MenuViewer.h"
#include "TextScroll.h"
#include "ViewTest.h"

#include <QScrollArea>

#include <climits>

// What fontconfig keeps of the fonts that stand in for missing letters is no leak of ours.
extern "C" const char* __lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier)
{
    return "leak:libfontconfig";
}

namespace {

std::string repeated(const std::string& text, size_t bytes)
{
    std::string result;
    while (result.size() + text.size() <= bytes)
        result += text;
    return result;
}

constexpr size_t longest = 65536;

const std::string shortTexts[] = {
    "",
    " ",
    "A text of some words, as there are many",
    "a\tb\\nc\nd\r\n",
    std::string("a\0b", 3),
    "\x1b[31m\x01\x7f",
    "\u0627\u0644\u0639\u0646\u0627\u0648\u064a\u0646 Headlines \u0663",
    "\u202ebackwards\u202c \u2066isolated\u2069 \u200f\u200d",
    "DISABLE:",
    "%1 %1 %2 %L99 %n %s",
    "<b>bold</b><img src='/tmp/x'>&amp;",
    "\U0001f600\U0001f469\u200d\U0001f680 e" + repeated("\u0301", 100),
    "sms:\xef\xbf\xbd?body=@MSISDN@%00",
    MenuSettings::modeOff,
    MenuSettings::modeHidden,
};

const std::string longTexts[] = {
    repeated("W", longest),
    repeated("word ", longest),
    repeated("\u0639\u0646\u0648\u0627\u0646 ", longest),
    repeated("\n", longest),
};

const std::string names[] = {
    "SetupHeadlines",
    "CustomHomeMode",
    "HowToUse",
    "AddNewChannel",
    "ManageMyChannels",
    "ConfigureHeadlines",
    "Scrolling",
    "Download",
    "Profile",
    "Details",
    "",
    " ",
    "Nobody",
    "details",
    "\u202eDetails",
};

const std::string& anyText(Dice& dice)
{
    return dice.oneIn(10) ? dice.pick(longTexts) : dice.pick(shortTexts);
}

const int numbers[] = {INT_MIN, -1, 0, 1, 2, 3, 4, INT_MAX};

const size_t sizes[] = {0, 1, 2, 3, 5, 8, 12, 500};

const int rarities[] = {1, 3, 10, 50};

std::string childList(Dice& dice)
{
    std::string list;
    for (size_t left = dice.pick(sizes); left > 0; --left)
        list += dice.pick(names) + (dice.oneIn(2) ? "," : " , ");
    return list;
}

SettingValue anyValue(Dice& dice, const OperatorPack::Setting& setting)
{
    if (setting.key.ends_with("ChildIDs") && !dice.oneIn(10))
        return childList(dice);
    if (setting.key == MenuSettings::enabledModeKey)
        return dice.pick(shortTexts); // every line reads it
    switch (dice.oneIn(20) ? static_cast<size_t>(dice.below(3)) : setting.value.index()) {
    case 0:
        return dice.pick(numbers);
    case 1:
        return !dice.oneIn(10);
    default:
        return anyText(dice);
    }
}

// The built-in pack with anything else in its place, in few places or in many.
OperatorPack anyPack(Dice& dice)
{
    OperatorPack pack = OperatorPack::builtIn();
    const int rarity = dice.pick(rarities);
    std::erase_if(pack.settings, [&](const auto&) { return dice.oneIn(rarity * 20); });
    for (OperatorPack::Setting& setting : pack.settings) {
        if (dice.oneIn(rarity))
            setting.value = anyValue(dice, setting);
    }
    for (auto& [name, value] : pack.device) {
        if (dice.oneIn(rarity))
            value = anyText(dice);
    }
    pack.channels->resize(dice.pick(sizes));
    pack.profiles->resize(dice.pick(sizes));
    int number = 0;
    for (OperatorPack::Channel& channel : *pack.channels) {
        channel = {std::to_string(++number), anyText(dice)};
        if (dice.oneIn(3))
            channel.title.reset();
    }
    for (OperatorPack::Profile& profile : *pack.profiles)
        profile = {std::to_string(++number) + anyText(dice), anyText(dice), dice.oneIn(2)};
    return pack;
}

// As a file where a file may say it; where it may not, the reader says why, and another writer could still bring it.
void install(OperatorPack pack)
{
    OperatorPack read;
    std::string error;
    if (OperatorPack::parse(pack.toJson(), read, error))
        pack = std::move(read);
    else
        EXPECT_FALSE(error.empty());
    EXPECT_EQ(CoreStore::instance().installPack(pack), STORE_OK);
}

QWidget* topLayer()
{
    const PhoneScreen* screen = PhoneScreen::instance();
    for (auto* layer : screen->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (layer->isVisible() && screen->isOnTop(layer))
            return layer;
    }
    return nullptr;
}

QRect onScreen(const QWidget& widget, const QRect& part)
{
    return {widget.mapTo(PhoneScreen::instance(), part.topLeft()), part.size()};
}

void expectOnScreen(const QWidget& layer)
{
    const QRect screen = PhoneScreen::instance()->rect();
    const auto* keys = layer.findChild<USoftKey*>();
    const QRect keyBar = onScreen(*keys, keys->rect());
    EXPECT_TRUE(screen.contains(keyBar));
    for (const auto* area : layer.findChildren<QAbstractScrollArea*>()) {
        const QRect shown = onScreen(*area, area->rect());
        EXPECT_TRUE(!area->isVisible() || (screen.contains(shown) && !shown.intersects(keyBar)))
            << area->metaObject()->className() << ' ' << shown.top() << ' ' << shown.bottom();
    }
    for (const auto* list : layer.findChildren<UListBox*>()) {
        const QRect row = list->visualRect(list->currentIndex());
        EXPECT_TRUE(row.left() >= 0 && row.right() < list->viewport()->width());
        EXPECT_TRUE(list->isWhollyVisible(row)) << "row " << list->currentRow();
    }
}

// What a person presses in the `turn`th turn on a layer: looks at it, opens what is there, and leaves it.
Qt::Key nextKey(Dice& dice, const QWidget& layer, int turn)
{
    if (qobject_cast<const vtmenu::MenuViewer*>(&layer))
        return turn == 18   ? Qt::Key_F2
               : turn == 17 ? Qt::Key_PageDown
               : turn % 2   ? Qt::Key_Down
                            : Qt::Key_Return;
    constexpr Qt::Key look[] = {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Up};
    if (turn < 3)
        return look[turn];
    return dice.oneIn(2) ? Qt::Key_F1 : Qt::Key_F2;
}

// Opens the root menu and goes through what is below it until that is closed, or long enough.
void goThroughMenus(Dice& dice)
{
    vtmenu::MenuViewer root(nodeOf("SetupHeadlines"), true, nullptr, nullptr);
    int turnsLeft = 60;
    QTimer turns;
    turns.setSingleShot(true);
    turns.callOnTimeout([&] {
        QWidget* layer = topLayer();
        if (!layer || turnsLeft == 0) {
            turnsLeft = 0;
            return;
        }
        expectOnScreen(*layer);
        const int turn = layer->property("turn").toInt();
        layer->setProperty("turn", turn + 1);
        const Qt::Key key = --turnsLeft > 0 ? nextKey(dice, *layer, turn) : Qt::Key_End;
        turns.start(1); // before the key, which may run an event loop of its own
        Screen::pressAtOnce(key);
    });
    turns.start(1);
    root.showView();
    while (turnsLeft > 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    Screen::settle();
    const QWidget* left = topLayer();
    EXPECT_FALSE(left) << left->metaObject()->className();
}

} // namespace

TEST(Packs, AnyPackGivesMenusThatStayOnTheScreen)
{
    qputenv("VISTANE_HANDOVER", "off");
    ManRefreshView::retryPause = 0;
    runCampaign(20, 2000, 300, [](Dice& dice) {
        const LogCapture log;
        const TestStore store;
        install(anyPack(dice));
        goThroughMenus(dice);
    });
}
