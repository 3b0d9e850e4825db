#include "Dice.h"
#include "LivePages.h"
#include "MenuSettings.h"
#include "MenuViewer.h"
#include "RefreshWatch.h"
#include "ViewTest.h"

#include <QAbstractScrollArea>
#include <QMouseEvent>

#include <climits>
#include <cstdio>
#include <unistd.h>

// What fontconfig keeps of the fonts that stand in for missing letters is no leak of ours.
extern "C" const char* __lsan_default_suppressions() // NOLINT(bugprone-reserved-identifier)
{
    return "leak:libfontconfig";
}

using namespace std::string_literals;

namespace {

constexpr int stepsOfALife = 80;
constexpr size_t mostPopups = 20;

std::string repeated(const char* text, int times)
{
    return QByteArray(text).repeated(times).toStdString();
}

// The last three are rare.
const std::string texts[] = {
    "",
    " ",
    "A text of some words, as there are many",
    "%1 %1 %2 %L99 %n %s <b>bold</b><img src='/tmp/x'>&amp;",
    "a\tb\\nc\nd\r\n\x1b[31m\x01\x7f\xff\xc3 a\0b"s,
    "\u0627\u0644\u0639\u0646\u0627\u0648\u064a\u0646 Headlines \u0663 \u202ebackwards\u202c "
    "\u2066isolated\u2069 \u200f",
    "DISABLE:",
    "\U0001f600\U0001f469\u200d\U0001f680 e" + repeated("\u0301", 50),
    "sms:\xef\xbf\xbd?body=@MSISDN@%00",
    MenuSettings::modeOff,
    MenuSettings::modeHidden,
    repeated("W", 65536),
    repeated("\u0639\u0646\u0648\u0627\u0646 ", 6000),
    repeated("\n", 65536),
};
const char* const names[] = {
    "SetupHeadlines", "CustomHomeMode", "HowToUse", "AddNewChannel", "ManageMyChannels", "ConfigureHeadlines",
    "Scrolling",      "Download",       "Profile",  "Details",       "Nobody",           ""};
const char* const ids[] = {"world", "standard", "saver", "business", "new", ""};
const int numbers[] = {INT_MIN, -1, 0, 1, 2, 3, 4, INT_MAX};
const size_t sizes[] = {0, 1, 2, 5, 12, 300};
const int rarities[] = {1, 3, 10, 50};

const std::string& anyText(Dice& dice)
{
    return texts[dice.below(dice.oneIn(10) ? std::size(texts) : std::size(texts) - 3)];
}

SettingValue anyValue(Dice& dice, const OperatorPack::Setting& setting)
{
    if (setting.key.ends_with("ChildIDs") && !dice.oneIn(10)) {
        std::string list;
        for (size_t left = dice.pick(sizes); left > 0; --left)
            list.append(dice.pick(names)) += ',';
        return list;
    }
    const SettingValue values[] = {dice.pick(numbers), !dice.oneIn(10), anyText(dice)};
    return values[dice.oneIn(20) ? dice.below(3) : setting.value.index()];
}

// The built-in pack with anything else in its place, in few places or in many: other writers bring what a pack's
// reader refuses.
void installAnyPack(Dice& dice)
{
    OperatorPack pack = OperatorPack::builtIn();
    const int rarity = dice.pick(rarities);
    std::erase_if(pack.settings, [&](const auto&) { return dice.oneIn(rarity * 20); });
    for (OperatorPack::Setting& setting : pack.settings)
        if (dice.oneIn(rarity))
            setting.value = anyValue(dice, setting);
    pack.profiles.emplace();
    for (size_t left = dice.pick(sizes); left > 0; --left)
        pack.profiles->push_back({std::to_string(left) + anyText(dice), anyText(dice), dice.oneIn(2)});
    EXPECT_EQ(CoreStore::instance().installPack(pack), STORE_OK);
}

void loadAnyScene(Dice& dice)
{
    Scene scene;
    for (std::string_view fact : Scene::factNames())
        Scene::factText(fact, anyText(dice), scene.device[std::string(fact)]);
    scene.channels.emplace(dice.pick(sizes));
    int number = 0;
    for (Scene::Channel& channel : *scene.channels) {
        channel.id = std::to_string(++number);
        if (!dice.oneIn(3))
            channel.title = anyText(dice);
    }
    EXPECT_EQ(CoreStore::instance().loadScene(scene), STORE_OK);
}

// Going back from the root would end most lives early.
bool isAtRoot()
{
    const auto* menu = onTop<vtmenu::MenuViewer>();
    return menu && menu == PhoneScreen::instance()->findChild<vtmenu::MenuViewer*>();
}

void pressKey(Dice& dice)
{
    constexpr Qt::Key keys[] = {Qt::Key_Down, Qt::Key_Down,     Qt::Key_Return, Qt::Key_Return,
                                Qt::Key_F1,   Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Up,
                                Qt::Key_3,    Qt::Key_F12,      Qt::Key_F2,     Qt::Key_Escape};
    Qt::Key key = dice.oneIn(100) ? Qt::Key_End : dice.pick(keys);
    if (isAtRoot() && (key == Qt::Key_F2 || key == Qt::Key_Escape))
        key = Qt::Key_Down;
    Screen::pressAtOnce(key);
    if (dice.oneIn(10))
        Screen::repeat(key, dice.below(30));
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
    if (!dice.oneIn(20)) // the others go to another window
        QCoreApplication::sendEvent(PhoneScreen::instance()->windowHandle(), &release);
}

// Its display, or the window is pulled larger.
void turn(Dice& dice)
{
    constexpr QSize sizes[] = {{240, 320}, {320, 240}, {176, 208}, {360, 720}, {720, 360}, {480, 800}};
    PhoneScreen::instance()->resize(dice.pick(sizes));
}

void touch(Dice& dice)
{
    QWindow* window = PhoneScreen::instance()->windowHandle();
    const auto anywhere = [&] { return QPointF(dice.below(window->width()), dice.below(window->height())); };
    const auto send = [&](QEvent::Type type, const QPointF& at, Qt::MouseButtons held) {
        QMouseEvent event(type, at, window->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &event);
    };
    QPointF at = anywhere();
    if (isAtRoot() && at.y() > window->height() - 40)
        return; // the soft keys
    send(QEvent::MouseButtonPress, at, Qt::LeftButton);
    if (dice.oneIn(3))
        send(QEvent::MouseMove, at = anywhere(), Qt::LeftButton);
    send(QEvent::MouseButtonRelease, at, Qt::NoButton);
}

void sendEvents(Dice& dice)
{
    const std::string& name =
        dice.oneIn(2) ? NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS : dice.pick(NR_Constants::eventNames);
    const Vt_Event::Parameters texts = {{"total", anyText(dice)}, {"free", anyText(dice)}, {"used", "3"}};
    const auto parameters = std::make_shared<Vt_Event::Parameters>(texts);
    for (int left = dice.oneIn(20) ? 300 : 1; left > 0; --left)
        Vt_EventAndStatusFacade::instance()->sendEvent(Vt_Event(name, dice.below(8) - 1, parameters), 0);
}

void writeSetting(Dice& dice)
{
    OperatorPack::Setting setting = dice.pick(OperatorPack::builtIn().settings);
    setting.value = anyValue(dice, setting);
    CoreStore::instance().write(setting.group, setting.key, setting.value);
}

void changeProfiles(Dice& dice)
{
    CoreStore& store = CoreStore::instance();
    const std::string& id = dice.pick(ids);
    if (dice.oneIn(3))
        store.removeProfile(id);
    else if (dice.oneIn(2))
        store.addProfile({id, anyText(dice), dice.oneIn(2)});
    else
        store.setCurrentProfile(id);
}

void act(Dice& dice)
{
    // How many of a thousand.
    constexpr std::pair<int, void (*)(Dice&)> acts[] = {
        {650, pressKey},    {20, turn},           {170, touch},        {70, sendEvents},
        {67, writeSetting}, {11, changeProfiles}, {6, installAnyPack}, {6, loadAnyScene}};
    int left = dice.below(1000);
    const auto* act = acts;
    while ((left -= act->first) >= 0)
        ++act;
    act->second(dice);
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
        EXPECT_TRUE(row.left() >= 0 && row.right() < list->viewport()->width()) << "row " << list->currentRow();
    }
}

// A menu that follows a change shows what its entries would answer now.
void expectUpToDate()
{
    auto* menu = onTop<vtmenu::MenuViewer>();
    if (!menu)
        return;
    QMetaObject::invokeMethod(menu, "followChanges"); // the pages are told in no certain order
    const Lines shown = rowsOf(*menu);
    menu->rebuildMenuView();
    EXPECT_EQ(shown, rowsOf(*menu));
}

// One life of the program: a phone in any state, and a person and a service who do anything at all, until the root
// menu is closed or the steps are used up.
void live(Dice& dice)
{
    const TestStore store;
    installAnyPack(dice);
    loadAnyScene(dice);
    vtmenu::MenuViewer root(nodeOf("SetupHeadlines"), true, nullptr, nullptr);
    int stepsLeft = stepsOfALife;
    QTimer steps;
    steps.setSingleShot(true);
    steps.callOnTimeout([&] {
        const QWidget* layer = onTop<QWidget>();
        stepsLeft = layer ? stepsLeft : 0;
        steps.start(stepsLeft ? 0 : 1); // before the act, which may run an event loop of its own
        if (!layer)
            return;
        expectOnScreen(*layer);
        EXPECT_LT(popups().size(), mostPopups);
        stepsLeft = std::max(0, stepsLeft - 1);
        if (stepsLeft > 0)
            act(dice);
        else // also when the bus still brings a dialog of a refresh
            Screen::pressAtOnce(Qt::Key_End);
    });
    steps.connect(vtmenu::LivePages::instance(), &vtmenu::LivePages::changed, &steps, expectUpToDate);
    steps.start(0);
    root.showView();
    while (stepsLeft > 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    for (int quiet = 0; quiet < 3; ++quiet) {
        Screen::settle();
        EXPECT_TRUE(QTest::qWaitFor([] { return !onTop<QWidget>(); }, 60'000))
            << onTop<QWidget>()->metaObject()->className();
    }
}

} // namespace

// A failure names its seed and life; a hang or a crash is in the last one that was begun.
TEST(Walk, AnythingAtAllLeavesTheMenuWhole)
{
    qputenv("VISTANE_HANDOVER", "off");
    ManRefreshView::retryPause = 0;
    RefreshWatch::patience = 0;
    vtmenu::LivePages::instance()->start();
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString& message) {
        ADD_FAILURE() << message.left(300).toStdString();
    });
    const uint64_t seed = qEnvironmentVariable("VISTANE_WALK_SEED", "1").toULongLong();
    const uint64_t lives = qEnvironmentVariable("VISTANE_WALK_STEPS", "3200").toULongLong() / stepsOfALife;
    for (uint64_t life = 0; life < lives && !HasFailure(); ++life) {
        const std::string name = "seed " + std::to_string(seed) + ", life " + std::to_string(life);
        SCOPED_TRACE(name);
        std::fprintf(stderr, "%s\n", name.c_str());
        alarm(300);
        const LogCapture log;
        Dice dice(seed, life);
        live(dice);
    }
}
