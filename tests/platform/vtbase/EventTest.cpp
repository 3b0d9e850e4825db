#include "LogCapture.h"
#include "NR_Constants.h"
#include "RefreshWatch.h"
#include "Table.h"
#include "Vt_Event.h"
#include "Vt_EventAndStatusFacade.h"
#include "Vt_EventHandler.h"

#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <unistd.h>

namespace {

struct Handler : Vt_EventHandler
{
    using Vt_EventHandler::Vt_EventHandler;
    void handleEvent(const Vt_Event& event) override
    {
        received.push_back(event);
        if (then)
            then();
    }
    std::vector<Vt_Event> received;
    std::function<void()> then;
};

Vt_EventAndStatusFacade& bus()
{
    return *Vt_EventAndStatusFacade::instance();
}

// Runs the event loop until everything sent so far has arrived.
void settle()
{
    Handler end("END");
    bus().sendEvent(Vt_Event("END"), 0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !end.received.empty(); }));
}

} // namespace

TEST(Event, ArrivesWholeAndOnlyFromTheEventLoop)
{
    Handler handler("A");
    using Parameters = Vt_Event::Parameters;
    const Parameters some = {{"free", "12 K"}, {"", "\xc3\xa4"}};
    for (const Vt_Event& event :
         {Vt_Event("A", -7, std::make_shared<Parameters>(some), "wac\n\xc3\xb6"),
          Vt_Event("A", 1, std::make_shared<Parameters>()), Vt_Event("A"), Vt_Event("B")})
        EXPECT_EQ(bus().sendEvent(event, 0), 0);
    EXPECT_TRUE(handler.received.empty());
    settle();

    ASSERT_EQ(handler.received.size(), 3u);
    EXPECT_EQ(handler.received[0].value(), -7);
    EXPECT_EQ(*handler.received[0].parameters(), some);
    EXPECT_EQ(handler.received[0].text(), "wac\n\xc3\xb6");
    EXPECT_TRUE(handler.received[1].parameters() && handler.received[1].parameters()->empty());
    EXPECT_FALSE(handler.received[2].parameters());
}

TEST(Event, HandlersComeAndGoDuringDelivery)
{
    auto first = std::make_unique<Handler>("A");
    auto second = std::make_unique<Handler>("A");
    std::unique_ptr<Handler> late;
    first->then = [&] {
        second.reset();
        late = std::make_unique<Handler>("A");
        bus().removeEventHandler("A", first.get());
        settle();
    };
    bus().addEventHandler("A", first.get());
    bus().sendEvent(Vt_Event("A", 1), 0);
    bus().sendEvent(Vt_Event("A", 2), 0);
    settle();
    EXPECT_EQ(first->received.size(), 1u);
    ASSERT_EQ(late->received.size(), 1u);
    EXPECT_EQ(late->received[0].value(), 2);
}

// In a process of its own, as this one may be on the bus already.
TEST(Event, WithoutABusTheProcessStillHearsItself)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto sendTwice = [] {
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
        const LogCapture log;
        Handler handler("A");
        EXPECT_NE(bus().sendEvent(Vt_Event("A", 1), 0), 0);
        EXPECT_NE(bus().sendEvent(Vt_Event("A", 2), 0), 0);
        EXPECT_TRUE(handler.received.empty());
        EXPECT_TRUE(QTest::qWaitFor([&] { return handler.received.size() == 2; }));
        EXPECT_EQ(handler.received.back().value(), 2);
        EXPECT_EQ(log.lines().size(), 1u) << log.text();
        _exit(HasFailure());
    };
    EXPECT_EXIT(sendTwice(), testing::ExitedWithCode(0), "");
}

// i: a refresh is asked for while there is no service, I: while there is one; x: it is given up; digits and q: reports;
// l: the service goes away; a dot lets time pass.
TEST(RefreshWatch, GivesUpWhatNobodyReportsOn)
{
    RefreshWatch::patience = 0;
    for (const auto& [actions, givenUp] :
         table<2>("i.|1;I.|0;Il.|1;i4.|0;i9.|0;i4l.|1;I9l.|1;I1l4.|0;I0l.|0;I2l.|0;I3l.|0;"
                  "Iql.|0;Ixl.|0;ix.|0;l.|0;4l.|0;i.i.|2;i.l.|1;Il.l.|1")) {
        int count = 0;
        RefreshWatch watch([&] { ++count; });
        for (const char action : actions) {
            if (action == 'l')
                watch.serviceLost();
            else if (action == '.')
                QTest::qWait(1);
            else if (action == 'q')
                watch.received(Vt_Event(NR_Constants::EVENT_NOTIFY_QUEUE_IN_PROGRESS_ERROR));
            else if (action == 'x')
                watch.sent(Vt_Event(NR_Constants::EVENT_ABORT_MANUAL_REFRESH), true);
            else if (action == 'i' || action == 'I')
                watch.sent(Vt_Event(NR_Constants::EVENT_INITIATE_MANUAL_REFRESH), action == 'I');
            else
                watch.received(Vt_Event(NR_Constants::EVENT_NOTIFY_MANUAL_REFRESH_STATUS, action - '0'));
        }
        EXPECT_EQ(std::to_string(count), givenUp) << actions;
    }
    RefreshWatch::patience = 1000;
}
