#include "CoreStore.h"
#include "FileLock.h"
#include "HostBus.h"
#include "PrivateFile.h"
#include "QCopChannel.h"
#include "Table.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>
#include <functional>

namespace {

constexpr char memoryFile[] = "/tmp/vtmem"; // what a run writes at its end
const std::string noImsi = "(Vt_Menu:70)[~~~~vistane~~~~]cannot get IMSI\n";
const std::string noMsisdn = "(Vt_Menu:78)[~~~~vistane~~~~]cannot get MSISDN\n";

// The built program, on a store and with a log of its own.
class Program
{
public:
    Program()
    {
        environment.insert("VISTANE_DB", dir.filePath("core.db"));
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

    // Another process's view of its store.
    CoreStore store() const { return CoreStore(dir.filePath("core.db").toStdString()); }

    void start()
    {
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(VISTANE_MENU), QStringList());
        ASSERT_TRUE(process.waitForStarted());
    }

    QByteArray log() const
    {
        QFile file(dir.filePath("log"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // How often the log says so.
    qsizetype count(const std::string& text) const { return log().count(text); }

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
        EXPECT_EQ(count("telephony client finished"), ends + 1) << log().constData();
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

TEST(Program, WaitsForTheIdentityButNotForATelephoneNumber)
{
    Program program;
    program.store().setFact("imsi", "");
    program.store().setFact("msisdn", "");
    program.start();
    ASSERT_TRUE(program.waitForLog(noImsi, 2));
    sendToMenu();
    askForIdleScreen();
    EXPECT_FALSE(program.process.waitForFinished(100)) << "nothing but the identity ends the wait";
    program.store().setFact("imsi", "001010123456789");
    ASSERT_TRUE(program.waitForLog("a return to idle is dropped")) << "there was nothing to close yet";
    const auto attempts = program.count(noImsi);
    program.endBy([] { sendToMenu(); });
    EXPECT_EQ(program.count(noImsi), attempts);
    EXPECT_EQ(program.count(noMsisdn), 1);
}

TEST(Program, ComesToTheFrontInsteadOfRunningTwice)
{
    Program program;
    program.start();
    ASSERT_TRUE(program.waitForLog("telephony client started"));
    QProcess second;
    second.setProcessEnvironment(program.environment);
    second.start(QStringLiteral(VISTANE_MENU), QStringList());
    EXPECT_TRUE(second.waitForFinished());
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_TRUE(program.waitForLog("somebody wants the menu in front"));
    program.endBy([] { sendToMenu(); });
    EXPECT_EQ(program.count("telephony client started"), 1);
}

// Where nothing can be kept nobody is the subscriber, and whoever reads the log through a pipe is told of the wait
// while it lasts.
TEST(Program, EndsBySignalWhileItWaits)
{
    for (const int number : {SIGTERM, SIGINT}) {
        Program program;
        program.environment.insert("VISTANE_DB", "/proc/vistane/core.db");
        program.environment.remove("VISTANE_LOG");
        program.start();
        QByteArray output;
        const auto isSaid = [&] { return (output += program.process.readAll()).endsWith(noImsi); };
        EXPECT_TRUE(QTest::qWaitFor(isSaid)) << output.constData();
        kill(static_cast<pid_t>(program.process.processId()), number);
        EXPECT_TRUE(program.process.waitForFinished(2000));
        EXPECT_EQ(program.process.exitCode(), number);
    }
}

TEST(Program, EndsWhileItAsksWhetherToSwitchItOn)
{
    for (const auto& end : {+[] { sendToMenu("close"); }, askForIdleScreen}) {
        Program program;
        program.store().write(8, "EnabledMode", "DISABLED_NORMAL_MODE");
        program.start();
        program.endBy(end);
        SettingValue mode;
        program.store().read(8, "EnabledMode", mode);
        EXPECT_EQ(mode, SettingValue("DISABLED_NORMAL_MODE"));
        EXPECT_EQ(program.count(noMsisdn), 0);
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
    qsizetype at = 0;
    for (const char* step :
         {"Adding rule: \"type='signal',path='/Vistane/Events'", "UI.ManageChannelURL: 2",
          "Adding rule: \"type='signal',path='/Vistane/MenuListener'", "telephony client finished",
          "Removing rule: \"type='signal',path='/Vistane/Platform'"}) {
        at = program.log().indexOf(step, at);
        ASSERT_GE(at, 0) << step << program.log().constData();
    }
}

// Programs of other tests may end meanwhile, too, and write theirs over it.
TEST(Program, CarriesTheMemoryTextsFromRunToRun)
{
    std::string texts;
    for (int tries = 0; tries < 10 && texts != "1 M\n2 M\n0 K\n"; ++tries) {
        Program program;
        PrivateFile::write(memoryFile, "1 M\n");
        program.start();
        program.endBy([&] {
            const QVariant free = QVariant::fromValue(HostBus::Texts{{"free", "2 M"}});
            EXPECT_TRUE(
                HostBus::send(BusSignals::event, {"EVENT_NOTIFY_STORAGE_STATUS", 0, free, true, "", 0}));
            sendToMenu();
        });
        texts = PrivateFile::read(memoryFile);
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
    EXPECT_EQ(program.count("no session bus: "), 1) << program.log().constData();
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

} // namespace
