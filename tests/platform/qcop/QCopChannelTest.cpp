#include "QCopChannel.h"
#include "LogCapture.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace {

TEST(QCopChannel, EveryOpenChannelOfTheNameGetsEveryMessage)
{
    QCopChannel first("/Vistane/MenuListener"), second("/Vistane/MenuListener"), other("/Vistane/Other");
    QSignalSpy atFirst(&first, &QCopChannel::received);
    QSignalSpy atSecond(&second, &QCopChannel::received);
    QSignalSpy atOther(&other, &QCopChannel::received);
    const std::pair<QCString, QByteArray> messages[] = {{"close()", QByteArray("\0\xff", 2)},
                                                        {"\xd8\xb9\xd9\x86", ""},
                                                        {"no utf-8 \xff", QByteArray(100000, 'x')}};
    for (const auto& [text, data] : messages)
        EXPECT_TRUE(QCopChannel::send("/Vistane/MenuListener", text, data));
    EXPECT_EQ(atFirst.size(), 0) << "never inside send()";

    ASSERT_TRUE(QTest::qWaitFor([&] { return atSecond.size() == 3; }));
    ASSERT_EQ(atFirst.size(), 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(atFirst[i][1].toByteArray(), messages[i].second) << i;
    EXPECT_EQ(atFirst[1][0].value<QCString>(), messages[1].first);
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
