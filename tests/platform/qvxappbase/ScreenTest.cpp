#include "Screen.h"
#include "Failure.h"
#include "Look.h"
#include "Marquee.h"
#include "RowDelegate.h"
#include "Table.h"
#include "TextBlock.h"
#include "UApplication.h"
#include "UKbMainWidget.h"
#include "UKeyObject.h"
#include "UListBox.h"
#include "UListBoxItem.h"
#include "UMessageDlg.h"
#include "UNoticeDlg.h"
#include "USoftKey.h"

#include <QAbstractEventDispatcher>
#include <QCloseEvent>
#include <QPointer>
#include <QScrollBar>

#include <gtest/gtest.h>

#include <ctime>
#include <map>

namespace {

void toWindow(QEvent&& event)
{
    QCoreApplication::sendEvent(PhoneScreen::instance()->windowHandle(), &event);
}

// A key by Qt's name: "F1" is pressed and released, "+F1" goes down, "-F1" goes up, "*F1" repeats while it is held, and
// so does "~F1" on a display that sends this as a release and a press of one moment. "code522" is a key without a name.
void key(const QString& sign)
{
    static quint64 time = 0;
    time += 100;
    const qsizetype hasSign = sign.size() > 1 && QString("+-*~").contains(sign[0]);
    const QString name = sign.sliced(hasSign);
    const bool isNameless = name.startsWith("code");
    const int code = isNameless ? name.sliced(4).toInt() : QKeySequence(name)[0].key();
    for (const QChar part : QString(!hasSign ? "+-" : sign[0] == '~' ? "-+" : sign.first(1))) {
        QKeyEvent event(part == '-' ? QEvent::KeyRelease : QEvent::KeyPress, isNameless ? 0 : code, {}, code, 0,
                        0, name.size() == 1 ? name : QString(), part == '*');
        event.setTimestamp(time);
        toWindow(std::move(event));
    }
}

// A page with soft keys and a list of 30 rows, of which the fifth is greyed; and a pop-up.
struct Page : UKbMainWidget
{
    UListBox& list = *new UListBox(QString(), this);
    USoftKey& keys = *new USoftKey("CST_2A", this, this);
    QPointer<UPopup> popup = new UMessageDlg(QString(), QString(), 0, 0);
    QStringList heard; // since it was last asked

    Page()
    {
        setContentWidget(&list);
        setCSTWidget(&keys);
        for (int i = 0; i < 30; ++i)
            list.insertItem(new UListBoxItem(&list, QString::number(i)), -1, true);
        list.item(4)->setEnabled(false);
        list.item(4)->setSelectable(false);
        list.setCurrentItem(0, true);
        const auto hear = [this](const QString& what) {
            heard += PhoneScreen::instance()->isOnTop(popup) ? what + ", though the pop-up is up" : what;
        };
        connect(&list, &UListBox::selected, [=](int row) { hear(QString::number(row)); });
        connect(&keys, &USoftKey::pressed, [=](int key) { hear(key == 0 ? "left" : "right"); });
        connect(popup, &UPopup::leftSoftkeyClicked, [=] { hear("ok"); });
        connect(popup, &UPopup::cancelled, [=] { hear("cancel"); });
        connect(UApplication::instance(), &UApplication::askReturnToIdle, this,
                [=, this](int reason) { heard += "idle" + QString::number(reason); });
        show();
        Screen::settle();
    }
    ~Page() override { delete popup; }

    std::string takeHeard() { return std::exchange(heard, {}).join(' ').toStdString(); }

    // The number of a row; "edge" is the one at the bottom that has too little room to be shown, "last" the one above.
    int row(const QString& name) const
    {
        const int edge = list.indexAt(list.viewport()->rect().bottomLeft()).row();
        return name == "edge" ? edge : name == "last" ? edge - 1 : name.toInt();
    }

    void touch(const std::vector<QEvent::Type>& types, const QString& place)
    {
        const std::map<QString, QPoint> places = {{"left", {20, height() - 10}},
                                                  {"right", {220, height() - 10}},
                                                  {"top", list.pos()},
                                                  {"edge", list.geometry().bottomLeft()}};
        const auto named = places.find(place);
        const QPoint at = named != places.end()
                              ? named->second
                              : list.visualItemRect(list.item(row(place))).center() + list.pos();
        QWidget* touched = childAt(at);
        for (QEvent::Type type : types) {
            QMouseEvent event(type, touched->mapFrom(this, at), at, Qt::LeftButton, Qt::LeftButton, {});
            QCoreApplication::sendEvent(touched, &event);
        }
    }

    // What a person does, one thing after the other: keys, touches such as "tap@3", and what else happens.
    void act(const std::string& actions)
    {
        const QEvent::Type down = QEvent::MouseButtonPress, up = QEvent::MouseButtonRelease;
        const std::map<QString, std::vector<QEvent::Type>> touches = {
            {"tap", {down, up}}, {"again", {QEvent::MouseButtonDblClick, up}},
            {"down", {down}},    {"move", {QEvent::MouseMove}},
            {"up", {up}},
        };
        const std::map<QString, std::function<void()>> others = {
            {"popup", [this] { popup->show(); }},
            {"close", [this] { popup->close(false); }},
            {"doomed", [this] { connect(popup, &UPopup::cancelled, [this] { delete popup; }); }},
            {"watched",
             [this] {
                 auto* watcher = new UKeyObject(popup);
                 watcher->setParent(this);
                 connect(watcher, &UKeyObject::keyPressed,
                         [this](int code) { heard += QString::number(code); });
                 for (int code : {4152, 4154})
                     watcher->addKey(code, true);
             }},
            {"elsewhere", [] { toWindow(QFocusEvent(QEvent::FocusOut)); }},
            {"quit", [] { QCoreApplication::quit(); }},
        };
        for (const QString& action : QString::fromStdString(actions).split(' ')) {
            if (action.contains('@'))
                touch(touches.at(action.section('@', 0, 0)), action.section('@', 1));
            else if (others.contains(action))
                others.at(action)();
            else
                key(action);
        }
    }
};

TEST(Screen, AnswersKeysAndTaps)
{
    // Which row is highlighted, what a person does, which row is highlighted then, what comes of it, and why.
    for (const auto& [before, actions, after, heard, why] : table<5>(R"(
0|Up|29||round and round
29|Down|0
0|*Up|0||but a held key stops
29|*Down|29
3|Down Down|5||over a greyed row
5|Up Up|3||also upwards
0|PgDown|last||as many rows as there is room for
4|Right Left|4||a greyed row can be left
0|2 5 9|8|1 8|a digit chooses its row, unless that is greyed
0|*2|0
0|A|0||letters do not search
0|Context1 Context2 Back Call Hangup Select|0|left right right 0 idle0 0|as phones call them
0|code522 code704 code705|1|1 left right|keys without a name
0|Return *Return|0|0|a held key chooses once
0|+Return ~Return ~Return -Return +Return -Return|0|0 0|known without its mark
4|Return|4||greyed
0|tap@4|0||greyed
0|tap@2|2|2
0|down@2 move@2 up@2|2|2|a finger trembles
0|down@2 move@1 up@2|2||a drag is no tap, though it ends on its row
0|tap@1 again@1|1|1|the second tap of a double tap is none
0|down@1 popup up@1|1||nor is one that began before a pop-up came
0|tap@edge|0||the place of a row that is not shown is empty
0|PgDown Down down@last move@edge up@edge tap@edge|edge||also when a drag put it there
0|F1 F9 F2 F11 Esc|0|left left right right right
0|tap@left down@right|0|left right|a soft key answers when it is pressed
0|tap@right again@right|0|right
0|*F1 *F2|0||held from before
0|+F2 elsewhere +F1 -F1|0|right left|the release went to another window
0|popup +F1 +F2 -F2 -F1 +F2 -F2|0|ok right|of two keys together the second one does not count
0|popup Tab F2|0|cancel|Tab does not lead below
0|watched popup F1 F2 End|0|4152 4154 idle0 4154|a key watcher hears of every way out
0|End popup End Return|0|idle0 idle0 0|from everywhere, and no pop-up stays
0|popup close popup End popup *Return|0|idle0|only a person's answer is one
0|doomed popup F1 popup F2 F2|0|ok cancel right|it may delete the pop-up
)")) {
        SCOPED_TRACE(actions + ": " + why);
        Page page;
        page.list.setCurrentItem(page.row(before.c_str()), true);
        page.act(actions);
        EXPECT_EQ(page.list.currentRow(), page.row(after.c_str()));
        EXPECT_EQ(page.takeHeard(), heard);
    }
}

TEST(Screen, ADragScrollsAndChoosesNothing)
{
    Page page;
    page.act("down@6 move@top up@top");
    EXPECT_GT(page.list.verticalScrollBar()->value(), 3);
    EXPECT_EQ(page.takeHeard(), "");
}

TEST(Screen, GivesTheKeysBackWhenAPageGoes)
{
    Page below;
    {
        Page above;
        above.act("F2");
        EXPECT_EQ(above.takeHeard(), "right");
    }
    below.act("F1");
    EXPECT_EQ(below.takeHeard(), "left") << "deleted without being closed";
    below.close(false);
    below.act("F1");
    EXPECT_EQ(below.takeHeard(), "");
}

TEST(Screen, DropsWhatWasTypedAheadButForTheRedKey)
{
    Page page;
    const auto pressAndTap = [&] {
        Screen::press({Qt::Key_F1, Qt::Key_F2, Qt::Key_End});
        QTest::mouseClick(PhoneScreen::instance()->windowHandle(), Qt::LeftButton, {},
                          {20, page.height() - 10});
        return page.takeHeard();
    };
    UApplication::instance()->dropEarlyInput();
    EXPECT_EQ(pressAndTap(), "idle0");
    EXPECT_TRUE(QTest::qWaitFor([&] { return pressAndTap() == "left right idle0 left"; }));
}

// Pages outlive the screen when a program ends with its menus open. A process has one screen, so another has its own.
TEST(Screen, LetsGoOfWhatIsStillThere)
{
    const auto isLetGo = [] {
        UKbMainWidget shown, closed;
        {
            PhoneScreen other;
            other.put(&shown, PhoneScreen::Layer::Page);
            other.put(&closed, PhoneScreen::Layer::Page);
            other.take(&closed);
        }
        return !shown.parent() && !closed.parent();
    };
    EXPECT_EXIT(_exit(isLetGo() ? 0 : 1), testing::ExitedWithCode(0), "");
}

// What ends the program is the menu's answer to that, not the window's going.
TEST(Screen, ThatAPersonClosesAsksForTheIdleScreenAndEndsNothing)
{
    Page page;
    Screen::later([] {
        toWindow(QCloseEvent());
        Screen::later([] { Screen::later([] { QCoreApplication::exit(7); }); });
    });
    EXPECT_EQ(QCoreApplication::exec(), 7);
    EXPECT_EQ(page.takeHeard(), "idle0");
}

TEST(Screen, HasLayersOfItsSize)
{
    Page page;
    for (const QSize size : {QSize(300, 400), QSize(240, 320)}) {
        PhoneScreen::instance()->setFixedSize(size);
        Screen::settle();
        EXPECT_EQ(page.size(), size);
    }
}

TEST(Popup, WhatExecAnswers)
{
    Page page;
    Screen::later([&] {
        for (const auto& [actions, result] :
             table<2>("Enter|1;F2|0;Esc|0;close|0;F1 End|0;F1 close|0;F1|1;quit|0")) {
            Screen::later([&, &actions = actions] { page.act(actions); });
            EXPECT_EQ(std::to_string(page.popup->exec()), result) << actions;
            EXPECT_FALSE(PhoneScreen::instance()->isOnTop(page.popup)) << actions;
        }
    });
    EXPECT_EQ(QCoreApplication::exec(), 0);
}

// Whatever fails meanwhile is mostly the same again.
TEST(FailureNotice, TellsOneAtATime)
{
    Page page;
    const auto shown = [] {
        Screen::settle();
        QStringList texts;
        for (const auto* notice : PhoneScreen::instance()->findChildren<UNoticeDlg*>())
            for (const auto* text : notice->findChildren<TextBlock*>())
                texts += notice->isVisible() ? text->accessibleName() : QString();
        return texts.join('|').toStdString();
    };
    Failure::tell(Failure::Kind::NotOpened, "tel:\n" + std::string(34, 'x') + "\u00e4x");
    Failure::tell(Failure::Kind::NotSaved);
    EXPECT_EQ(shown(), "No application here opens tel: " + std::string(34, 'x') + " links.")
        << "no half character";
    page.act("F1 F1");
    EXPECT_EQ(page.takeHeard(), "left") << "the first one was the notice's";
    Failure::tell(Failure::Kind::NotKnown, "tel:");
    EXPECT_EQ(shown(), "Nobody says whether the tel: link was opened.");
    page.act("F2");
}

TEST(Look, ShortensBetweenCharacters)
{
    for (const auto& [text, shortened] :
         {std::pair(u"abc", u"abc"), {u"abcd", u"abc…"}, {u"ab\U0001f600", u"ab…"}})
        EXPECT_EQ(Look::shortened(QString::fromUtf16(text), 3), QString::fromUtf16(shortened));
}

TEST(List, IndexesThatAreNotThere)
{
    Page page;
    UListBox& list = page.list;
    EXPECT_FALSE(list.item(-1) || list.item(30));
    list.setCurrentItem(70, true);
    EXPECT_EQ(list.currentRow(), 29) << "past the end is the last row";
    list.checkItem(30, true);
    EXPECT_EQ(list.radioItemChecked(), -1);
    list.checkItem(2, true);
    list.removeItem(0);
    EXPECT_EQ(list.radioItemChecked(), 1) << "the mark stays with its row";
    list.insertItem(new UListBoxItem(&list, "above it"), 1, true);
    list.removeItem(-5);
    list.removeItem(90);
    EXPECT_EQ(list.radioItemChecked(), 2);
    list.clear();
    EXPECT_EQ(list.radioItemChecked(), -1);
    page.act("Down PgDown Return");
    EXPECT_EQ(page.takeHeard(), "");
}

TEST(List, TheMarqueeRunsOnTopAndRestsBelow)
{
    Page page;
    page.list.item(0)->appendSubItem(0, "a text that is too long for the width of the phone", false);
    page.list.enableMarquee(0, true);
    page.list.clearFocus();
    page.list.setFocus();
    const auto offset = [&] { return page.list.lookOf(page.list.currentIndex()).offset; };
    EXPECT_TRUE(QTest::qWaitFor([&] { return offset() > 0; }, 60'000));
    const Page above;
    EXPECT_EQ(offset(), 0);
    const auto* timers = QAbstractEventDispatcher::instance();
    EXPECT_TRUE(timers->registeredTimers(page.list.findChild<Marquee*>()).isEmpty()) << "it would start anew";
}

// Four times the rows cost four times as much, not sixteen times: for each row to come, to be shown and to go.
TEST(List, TakesNoLongerThanItsLengthAsksFor)
{
    Page page;
    UListBox& list = page.list;
    const auto timeFor = [&list](int rows) {
        const std::clock_t begin = std::clock();
        list.clear();
        for (int i = 0; i < rows; ++i)
            list.insertItem(new UListBoxItem(&list, QString::number(i)), -1, true);
        list.setCurrentItem(rows, true);
        Screen::settle();
        while (list.count() > 1)
            list.removeItem(list.count() - 1);
        return std::clock() - begin;
    };
    timeFor(1000);
    const std::clock_t few = timeFor(5000);
    EXPECT_LT(timeFor(20000), 9 * few);
}

} // namespace
