#include "QCopChannel.h"
#include "LogCapture.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct Message
{
    QCString text;
    QByteArray data;
};

TEST(QCopChannel, EveryOpenChannelOfTheNameGetsEveryMessage)
{
    QCopChannel first("/Vistane/MenuListener");
    QCopChannel second("/Vistane/MenuListener");
    QCopChannel other("/Vistane/Other");
    QSignalSpy atFirst(&first, &QCopChannel::received);
    QSignalSpy atSecond(&second, &QCopChannel::received);
    QSignalSpy atOther(&other, &QCopChannel::received);

    const Message messages[] = {
        {"close()", QByteArray("\0\xff", 2)},
        {"", ""},
        {"\xd8\xb9\xd9\x86", "x"},
        {"not utf-8 \xff", QByteArray(100000, 'x')},
    };
    for (const Message& message : messages)
        EXPECT_TRUE(QCopChannel::send("/Vistane/MenuListener", message.text, message.data));
    EXPECT_EQ(atFirst.size(), 0) << "never inside send()";

    ASSERT_TRUE(QTest::qWaitFor([&] { return atSecond.size() == 4; }));
    ASSERT_EQ(atFirst.size(), 4);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(atFirst[i][1].toByteArray(), messages[i].data) << i;
    EXPECT_EQ(atFirst[2][0].value<QCString>(), messages[2].text);
    EXPECT_EQ(atOther.size(), 0);
}

TEST(QCopChannel, ANameThatIsNoPathIsRefused)
{
    LogCapture log;
    for (const char* name : {"", "Vistane", "/", "/Vistane/", "/Vistane//Menu", "/Vist\xc3\xa4ne", "/a b"}) {
        QCopChannel channel(name);
        EXPECT_FALSE(QCopChannel::send(name, "x")) << name;
    }
    EXPECT_EQ(log.lines().size(), 7u);
    EXPECT_TRUE(QCopChannel::send("/Vistane/MenuListener", "x")) << "and the connection lives on";
}

} // namespace
