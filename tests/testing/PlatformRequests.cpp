#include "PlatformRequests.h"

#include "HostBus.h"

#include <QTest>

#include <gtest/gtest.h>

#include <utility>

namespace {

const char endMark[] = "the end";

} // namespace

PlatformRequests::PlatformRequests()
{
    EXPECT_TRUE(HostBus::subscribe("/Vistane/Platform", "org.vistane.Platform1", "Request", this,
                                   SLOT(request(QString, QStringList))));
    HostBus::flush();
}

std::vector<std::string> PlatformRequests::take()
{
    // Signals come in the order in which they were sent, so a last one of our own says that all are here.
    HostBus::send("/Vistane/Platform", "org.vistane.Platform1", "Request", {endMark, QStringList()});
    EXPECT_TRUE(QTest::qWaitFor([this] { return !mRequests.empty() && mRequests.back() == endMark; }));
    if (!mRequests.empty())
        mRequests.pop_back();
    return std::exchange(mRequests, {});
}

void PlatformRequests::request(const QString& operation, const QStringList& arguments)
{
    mRequests.push_back((QStringList(operation) + arguments).join(u'|').toStdString());
}
