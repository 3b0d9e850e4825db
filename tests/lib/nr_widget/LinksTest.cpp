#include "BusListener.h"
#include "DesktopStandIn.h"
#include "FileLock.h"
#include "LogCapture.h"
#include "NR_MessageFile.h"
#include "NR_URLLauncher.h"
#include "PrivateFile.h"
#include "TestStore.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <sys/resource.h>
#include <unistd.h>

namespace {

// What a column of a table stands for; the notation is explained at the top of links.tsv.
std::string bytesOf(const std::string& text)
{
    QByteArray bytes = QByteArray::fromStdString(text == "\"\"" ? "" : text).replace("\\\\", "\\x5C");
    bytes.replace("\\n", "\\x0A").replace("\\t", "\\x09").replace("\\0", "\\x00").replace("\\x", "\\");
    return QByteArray::fromPercentEncoding(bytes, '\\').toStdString();
}

using Row = std::vector<std::string>;

// The cases of a table.
std::vector<Row> casesOf(const char* table)
{
    std::ifstream file(std::string(VISTANE_TABLES "/") + table);
    std::vector<Row> cases;
    for (std::string line; std::getline(file, line);) {
        std::istringstream columns(line);
        if (!line.empty() && line[0] != '#')
            for (cases.emplace_back(); std::getline(columns, line, '\t');)
                cases.back().push_back(bytesOf(line));
    }
    return cases;
}

Row parsed(const std::string& kind, const Row& row)
{
    const std::string& input = row[1];
    if (kind == "scheme")
        return {NR_URLLauncher::getURLScheme(input)};
    if (kind == "equal")
        return {row[2], NR_URLLauncher::equalsIgnoreCase(input, row[2]) ? "yes" : "no"};
    if (kind == "hex")
        return {std::to_string(NR_URLLauncher::hexDigitValue(input.at(0)))};
    if (kind == "number")
        return {NR_URLLauncher::parseTelNo(input)};
    if (kind == "decode")
        return {NR_URLLauncher::percentDecode(input)};
    if (kind == "log") {
        const LogCapture log;
        NR_URLLauncher::launch(vtTypes::ID(input));
        return log.lines();
    }
    Row parts(kind == "sms" ? 2 : 5, "=");
    if (kind == "sms")
        NR_URLLauncher::parseSmsUrl(input, parts[0], parts[1]);
    else
        NR_URLLauncher::parseHeader(input, std::min(input.find('?'), input.size()), parts[0], parts[1],
                                    parts[2], parts[3], parts[4]);
    return parts;
}

class Links : public testing::Test
{
protected:
    static bool launch(const std::string& link) { return NR_URLLauncher::launch(vtTypes::ID(link)); }

    TestStore store{R"({"device": {"model": "VX 1", "msisdn": "+15550100"}})"};
    FileLock lock{NR_MessageFile::path};
    DesktopStandIn desktop{{"gio", "gnome-calendar", "gnome-contacts"}};
    LogCapture log;
};

TEST_F(Links, AreTakenApartAndAskThePlatform)
{
    qputenv("VISTANE_HANDOVER", "off");
    BusListener requests(BusSignals::request);
    const std::vector<Row> cases = casesOf("links.tsv");
    for (const Row& row : cases) {
        SCOPED_TRACE(testing::PrintToString(row));
        if (row[0] != "launch") {
            EXPECT_EQ(parsed(row[0], row), Row(row.begin() + 2, row.end()));
            continue;
        }
        unlink(NR_MessageFile::path);
        EXPECT_EQ(launch(row[1]), row[2] == "yes");
        EXPECT_EQ(requests.take(), row[3] == "none" ? Row() : Row{row[3]});
        EXPECT_EQ(access(NR_MessageFile::path, F_OK) == 0, row.size() > 4);
        EXPECT_EQ(PrivateFile::read(NR_MessageFile::path), row.size() > 4 ? row[4] : "");
    }
    EXPECT_GT(cases.size(), 150u);
}

TEST_F(Links, StartOneProgramWithOneArgumentOrNothingWhenTheyAreHostile)
{
    unlink(NR_MessageFile::path);
    const std::vector<Row> cases = casesOf("hostile.tsv");
    for (const Row& row : cases) {
        launch(row[0]);
        std::vector<Row> expected, started;
        if (row[1] != "nothing")
            expected.emplace_back(row.begin() + 1, row.end());
        for (const auto& call : desktop.take(expected.size()))
            started.push_back(call.words);
        EXPECT_EQ(started, expected) << row[0];
    }
    EXPECT_GT(cases.size(), 50u) << "the last of which starts something, so that nothing was started late";
    EXPECT_NE(access("/tmp/vt-pwned", F_OK), 0);
}

TEST_F(Links, AMegabyteOfAnythingIsSurvived)
{
    const std::string much(1 << 20, '\xff');
    for (const char* start : {"", "http:", "mailto:", "mailto:a?body=", "smsto:1?text=", "smsto:", "tel:",
                              "midlet:", "rtsp:", "ical:", "vtel:"})
        launch(start + much);
    EXPECT_FALSE(launch("http:" + much)) << "is more than can be handed over";
    const auto calls = desktop.take(1);
    ASSERT_EQ(calls.size(), 1u) << "only a call can be made of so much, one without a number";
    EXPECT_EQ(calls[0].words.back(), "tel:");
}

TEST_F(Links, DoNotLeadToWhatIsPlantedForTheMessageFileNorSendAnEarlierText)
{
    const QTemporaryDir dir;
    const std::string precious = dir.filePath("precious").toStdString();
    ASSERT_TRUE(PrivateFile::write(precious.c_str(), "secret"));
    unlink(NR_MessageFile::path);
    ASSERT_EQ(symlink(precious.c_str(), NR_MessageFile::path), 0);
    BusListener requests(BusSignals::request);
    launch("smsto:1?text=x");
    unlink(NR_MessageFile::path);
    EXPECT_EQ(desktop.take(1).at(0).words.back(), "sms:1");
    EXPECT_EQ(PrivateFile::read(precious.c_str()), "secret");
    EXPECT_TRUE(requests.take().at(0).ends_with("|Files|" + std::string(NR_MessageFile::path)))
        << "the file is named though it could not be written";

    ASSERT_TRUE(PrivateFile::write(NR_MessageFile::path, "earlier"));
    rlimit files; // without any, nothing can be opened, so nothing can be written
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &files), 0);
    const rlimit none = {0, files.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    NR_MessageFile::write("other");
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &files), 0);
    EXPECT_EQ(PrivateFile::read(NR_MessageFile::path), "");
}

// Read the obvious way, some of these cost the square of their length: minutes instead of milliseconds.
TEST_F(Links, TakeNoLongerThanTheirLengthAsksFor)
{
    const auto began = std::chrono::steady_clock::now();
    for (const char* piece : {"=", "&=", "?=", "?cc=", "&cc=", "%", "%25", "a", "&", "?", "1", "%2Z"}) {
        std::string link = "mailto:?";
        while (link.size() < 1 << 20)
            link += piece;
        for (const char* kind : {"mail", "sms", "number", "decode"})
            parsed(kind, {kind, link});
    }
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(10));
}

} // namespace
