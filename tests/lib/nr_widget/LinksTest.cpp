#include "FileLock.h"
#include "LinkTable.h"
#include "LogCapture.h"
#include "NR_MessageFile.h"
#include "NR_URLLauncher.h"
#include "PlatformRequests.h"
#include "PrivateFile.h"
#include "TestStore.h"

#include <gtest/gtest.h>

#include <chrono>
#include <unistd.h>

namespace {

const char device[] = R"({"device": {"model": "VX 1", "msisdn": "+15550100"}})";

void checkParsing(const LinkRow& row)
{
    const std::string kind = row.at(0);
    const std::string input = row.at(1);
    if (kind == "scheme") {
        EXPECT_EQ(NR_URLLauncher::getURLScheme(input), row.at(2));
    } else if (kind == "equal") {
        EXPECT_EQ(NR_URLLauncher::equalsIgnoreCase(input, row.at(2)), row.at(3) == "yes");
        EXPECT_EQ(NR_URLLauncher::equalsIgnoreCase(row.at(2), input), row.at(3) == "yes");
    } else if (kind == "hex") {
        EXPECT_EQ(std::to_string(NR_URLLauncher::hexDigitValue(input.at(0))), row.at(2));
    } else if (kind == "number") {
        EXPECT_EQ(NR_URLLauncher::parseTelNo(input), row.at(2));
    } else if (kind == "decode") {
        EXPECT_EQ(NR_URLLauncher::percentDecode(input), row.at(2));
    } else if (kind == "sms") {
        std::string address = "old";
        std::string text = "old";
        NR_URLLauncher::parseSmsUrl(input, address, text);
        EXPECT_EQ(address, row.at(2));
        EXPECT_EQ(text, row.at(3));
    } else if (kind == "mail") {
        std::string to = "=", cc = "=", bcc = "=", subject = "=", body = "=";
        NR_URLLauncher::parseHeader(input, std::min(input.find('?'), input.size()), to, cc, bcc, subject, body);
        const std::vector<std::string> expected(row.columns.begin() + 2, row.columns.end());
        EXPECT_EQ((std::vector{to, cc, bcc, subject, body}), expected);
    } else {
        EXPECT_EQ(kind, "launch") << "no such kind of case";
    }
}

TEST(Links, AreTakenApart)
{
    const std::vector<LinkRow> rows = linkTable("links.tsv");
    EXPECT_GT(rows.size(), 150u);
    for (const LinkRow& row : rows) {
        SCOPED_TRACE(row.where);
        checkParsing(row);
    }
}

TEST(Links, AskThePlatform)
{
    TestStore store(device);
    FileLock lock(NR_MessageFile::path);
    qputenv("VISTANE_HANDOVER", "off");
    PlatformRequests requests;
    LogCapture quiet;
    for (const LinkRow& row : linkTable("links.tsv")) {
        if (row.at(0) != "launch")
            continue;
        SCOPED_TRACE(row.where);
        unlink(NR_MessageFile::path);
        EXPECT_EQ(NR_URLLauncher::launch(vtTypes::ID(row.at(1))), row.at(2) == "yes");
        std::vector<std::string> expected;
        if (row.at(3) != "none")
            expected.push_back(row.at(3));
        EXPECT_EQ(requests.take(), expected);
        EXPECT_EQ(access(NR_MessageFile::path, F_OK) == 0, row.columns.size() > 4);
        EXPECT_EQ(PrivateFile::read(NR_MessageFile::path), row.at(4));
    }
}

TEST(Links, OnlyMessagesAreLogged)
{
    TestStore store;
    FileLock lock(NR_MessageFile::path);
    qputenv("VISTANE_HANDOVER", "off");
    LogCapture log;
    for (const char* link : {"smsto:1-2?text=a%20%25s", "smsto:3?text=x%0A(Vt_Menu:78)%00forged%C2%9B%C3%9B",
                             "smstox:1-2?text=a%20b", "mmsto:12", "mailto:a?cc=b", "tel:1", "vtel:1",
                             "midlet:x", "rtsp:x", "ical:1", "vcal:", "http://h", "addressbook", "home"})
        NR_URLLauncher::launch(vtTypes::ID(link));
    const std::string start = "(../../lib/nr_widget/NR_URLLauncher:*)[~~~~vistane~~~~]launch";
    const std::vector<std::string> expected = {
        start + "SMSTO: address = 12",  start + "SMSTO: text = a %s",
        start + "SMSTO: address = 3",   start + "SMSTO: text = x (Vt_Menu:78) forged  \u00db",
        start + "SMSTOX: address = 12", start + "SMSTOX: text = a%20b",
        start + "MMSTO: address = 12",  start + "MMSTO: text = ",
    };
    EXPECT_EQ(log.lines(), expected);
}

// Read the obvious way, some of these cost the square of their length: minutes instead of milliseconds.
TEST(Links, ALongLinkTakesNoLongerThanItsLengthAsksFor)
{
    const auto began = std::chrono::steady_clock::now();
    for (const char* piece : {"=", "&=", "?=", "?cc=", "&cc=", "%", "%25", "a", "&", "?", "1", "%2Z"}) {
        std::string link = "mailto:?";
        while (link.size() < 1 << 20)
            link += piece;
        std::string a, b, c, d, e;
        NR_URLLauncher::parseHeader(link, 7, a, b, c, d, e);
        NR_URLLauncher::parseSmsUrl(link, a, b);
        NR_URLLauncher::parseTelNo(link);
        NR_URLLauncher::percentDecode(link);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(10));
}

} // namespace
