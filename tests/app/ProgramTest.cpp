#include "CoreStore.h"
#include "FileLock.h"
#include "HostBus.h"
#include "QCopChannel.h"
#include "Table.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>
#include <fstream>
#include <functional>
#include <iterator>
#include <linux/capability.h>
#include <sys/prctl.h>

namespace {

constexpr int systemGroup = 8;
constexpr char memoryFile[] = "/tmp/vtmem"; // what a run writes at its end
constexpr char modeKey[] = "EnabledMode";
const std::string modeOff = "DISABLED_NORMAL_MODE";

// The built program, on a store and with a log of its own.
class Program
{
public:
    Program()
    {
        environment.insert("VISTANE_DB", storePath());
        environment.insert("VISTANE_LOG", dir.filePath("log"));
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.remove("VISTANE_SCREEN");
        store().setFact("imsi", "001010123456789");
        store().setFact("msisdn", "+12025550123");
    }

    ~Program()
    {
        process.kill();
        process.waitForFinished();
    }

    QString storePath() const { return dir.filePath("core.db"); }

    // Another process's view of its store.
    CoreStore store() const { return CoreStore(storePath().toStdString()); }

    void start()
    {
        process.setProcessEnvironment(environment);
        // File permissions bind it even when the tests are run by root.
        process.setChildProcessModifier([] {
            prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
            prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
        });
        process.start(QStringLiteral(VISTANE_MENU), QStringList());
        ASSERT_TRUE(process.waitForStarted());
    }

    std::string log() const
    {
        QFile file(dir.filePath("log"));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
    }

    // How often the log says so.
    int count(const std::string& text) const
    {
        int found = 0;
        const std::string all = log();
        for (size_t at = 0; (at = all.find(text, at)) != std::string::npos; at += text.size())
            ++found;
        return found;
    }

    bool waitForLog(const std::string& text, int times = 1)
    {
        return QTest::qWaitFor([&] { return count(text) >= times; }, 20000);
    }

    // Does `request` until the program has ended, for it may not be listening yet.
    void endBy(const std::function<void()>& request)
    {
        const int ends = count("telephony client finished");
        for (int tries = 0; tries < 200 && process.state() == QProcess::Running; ++tries) {
            request();
            process.waitForFinished(100);
        }
        EXPECT_EQ(process.state(), QProcess::NotRunning);
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), 0);
        EXPECT_EQ(count("telephony client finished"), ends + 1) << log();
    }

    const KeptFile memory{memoryFile};
    QTemporaryDir dir;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    QProcess process;
};

void sendToMenu(const char* message = "")
{
    EXPECT_TRUE(QCopChannel::send("/Vistane/MenuListener", message));
    HostBus::flush();
}

void askForIdleScreen()
{
    EXPECT_TRUE(HostBus::send(BusSignals::returnToIdle, {5}));
    HostBus::flush();
}

const std::string noImsi = "(Vt_Menu:70)[~~~~vistane~~~~]cannot get IMSI\n";
const std::string noMsisdn = "(Vt_Menu:78)[~~~~vistane~~~~]cannot get MSISDN\n";

TEST(Program, WaitsForTheIdentity)
{
    Program program;
    program.store().setFact("imsi", "");
    program.start();
    ASSERT_TRUE(program.waitForLog(noImsi, 2));
    sendToMenu();
    askForIdleScreen();
    EXPECT_FALSE(program.process.waitForFinished(100)) << "nothing but the identity ends the wait";
    program.store().setFact("imsi", "001010123456789");
    ASSERT_TRUE(program.waitForLog("a return to idle is dropped")) << "there was nothing to close yet";
    const int attempts = program.count(noImsi);
    program.endBy([] { sendToMenu(); });
    EXPECT_EQ(program.count(noImsi), attempts);
    EXPECT_EQ(program.count(noMsisdn), 0);
}

// Whoever reads the log through a pipe is told of the wait while it lasts.
TEST(Program, LogsToStandardOutputLineByLine)
{
    Program program;
    program.store().setFact("imsi", "");
    program.environment.remove("VISTANE_LOG");
    program.start();
    std::string output;
    const auto isSaid = [&] {
        output += program.process.readAllStandardOutput().toStdString();
        return output.ends_with(noImsi);
    };
    EXPECT_TRUE(QTest::qWaitFor(isSaid, 5000)) << output;
}

TEST(Program, StartsWithoutATelephoneNumber)
{
    Program program;
    program.store().setFact("msisdn", "");
    program.start();
    program.endBy([] { sendToMenu(); });
    EXPECT_EQ(program.count(noMsisdn), 1);
    EXPECT_EQ(program.count(noImsi), 0);
}

TEST(Program, EndsBySignalWhileItWaits)
{
    for (const int number : {SIGTERM, SIGINT}) {
        Program program;
        program.store().setFact("imsi", "");
        program.start();
        ASSERT_TRUE(program.waitForLog(noImsi));
        kill(static_cast<pid_t>(program.process.processId()), number);
        EXPECT_TRUE(program.process.waitForFinished(2000));
        EXPECT_EQ(program.process.exitCode(), number);
    }
}

// In all ways the same, with the menu on the screen or with the question before it, which stays unanswered.
TEST(Program, EndsWithStatusZero)
{
    const struct
    {
        const char* what;
        std::function<void()> request;
    } endings[] = {
        {"message", [] { sendToMenu("close"); }},
        {"message without a name", [] { sendToMenu(""); }},
        {"return to idle", askForIdleScreen},
    };
    for (const std::string& mode : {std::string("ENABLED_NORMAL_MODE"), modeOff}) {
        for (const auto& ending : endings) {
            SCOPED_TRACE(mode + ", " + ending.what);
            Program program;
            program.store().write(systemGroup, modeKey, mode);
            program.start();
            program.endBy(ending.request);
            SettingValue after = std::string();
            program.store().read(systemGroup, modeKey, after);
            EXPECT_EQ(after, SettingValue(mode));
        }
    }
}

// What the bus is asked for tells when who came and went.
TEST(Program, BuildsTheActionsBeforeTheEntriesAndLeavesTelephonyBeforeTheScreenGoes)
{
    Program program;
    program.store().write(10, "ManageChannelURL", 1); // so that the log tells of its reading
    program.environment.insert("QDBUS_DEBUG", "1");
    program.process.setStandardErrorFile(program.dir.filePath("log"), QIODevice::Append);
    program.start();
    program.endBy([] { sendToMenu(); });
    size_t at = 0;
    for (const char* step : {"Adding rule: \"type='signal',path='/Vistane/Events'", "UI.ManageChannelURL: 2",
                             "Adding rule: \"type='signal',path='/Vistane/MenuListener'",
                             "telephony client finished",
                             "Removing rule: \"type='signal',path='/Vistane/Platform'"}) {
        at = program.log().find(step, at);
        ASSERT_NE(at, std::string::npos) << step << program.log();
    }
}

// Programs of other tests may end meanwhile, too, and write theirs over it.
TEST(Program, CarriesTheMemoryTextsToTheNextRun)
{
    Program program;
    const auto runWith = [&](const char* key, const char* text) {
        program.start();
        program.endBy([&] {
            const QVariant texts = QVariant::fromValue(HostBus::Texts{{key, text}});
            EXPECT_TRUE(
                HostBus::send(BusSignals::event, {"EVENT_NOTIFY_STORAGE_STATUS", 0, texts, true, "", 0}));
            sendToMenu();
        });
        std::ifstream file(memoryFile);
        return std::string(std::istreambuf_iterator(file), {});
    };
    std::string texts;
    for (int tries = 0; tries < 10 && texts != "1 M\n2 M\n0 K\n"; ++tries) {
        std::remove(memoryFile);
        runWith("total", "1 M");
        texts = runWith("free", "2 M");
    }
    EXPECT_EQ(texts, "1 M\n2 M\n0 K\n");
}

TEST(Program, RunsWithoutABus)
{
    Program program;
    program.environment.insert("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
    program.start();
    ASSERT_TRUE(program.waitForLog("no session bus: "));
    EXPECT_FALSE(program.process.waitForFinished(1000));
    EXPECT_EQ(program.count("no session bus: "), 1) << program.log();
}

TEST(Program, RunsOnAScreenOfNoSize)
{
    for (const auto& [variable, values, wanted] : table<3>(R"(
VISTANE_SCREEN|banana,0x0,240,99999x99999|a size such as 240x320
QT_SCALE_FACTOR|banana,0,-1,nan,inf,1e9|a number above 0 and up to 16 is wanted)")) {
        for (const QString& value : QString::fromStdString(values).split(',')) {
            const std::string said = variable + " is " + value.toStdString() + ", but " + wanted;
            Program program;
            program.environment.insert(QString::fromStdString(variable), value);
            program.start();
            program.endBy([] { sendToMenu(); });
            EXPECT_EQ(program.count(said), 1) << said;
        }
    }
}

TEST(Program, RunsOnAStoreOfNoUse)
{
    const struct
    {
        const char* what;
        std::function<void(Program&)> spoil;
        std::string logged;
        bool knowsIdentity = false;
    } cases[] = {
        {"directory",
         [](Program& p) {
             QFile::remove(p.storePath());
             QDir().mkpath(p.storePath());
         },
         "is not a file: using the built-in pack"},
        {"garbage",
         [](Program& p) {
             QFile file(p.storePath());
             ASSERT_TRUE(file.open(QIODevice::WriteOnly));
             file.write(QByteArray(5000, 'x'));
         },
         "is no database of ours: kept as "},
        {"no folder for it", [](Program& p) { p.environment.insert("VISTANE_DB", "/proc/vistane/core.db"); },
         "no change will be saved"},
        {"unreadable",
         [](Program& p) {
             p.store();
             QFile::setPermissions(p.storePath(), {});
         },
         "cannot be read: kept as "},
        {"read-only",
         [](Program& p) {
             p.store();
             QFile::setPermissions(p.storePath(), QFile::ReadOwner);
         },
         "", true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Program program;
        c.spoil(program);
        program.start();
        if (c.knowsIdentity)
            program.endBy([] { sendToMenu(); });
        else
            EXPECT_TRUE(program.waitForLog(noImsi)) << "an invented subscriber is none";
        EXPECT_NE(program.log().find(c.logged), std::string::npos) << program.log();
    }
}

} // namespace
