#include "ApiProvider.h"
#include "Campaign.h"
#include "CoreStore.h"
#include "EntryRegistry.h"
#include "HostBus.h"
#include "LogCapture.h"
#include "MenuChannel.h"
#include "NodeAdapter.h"
#include "QCopChannel.h"
#include "SettingGroups.h"
#include "Sqlite.h"

#include <QProcess>
#include <QTemporaryDir>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <optional>
#include <sqlite3.h>
#include <sys/wait.h>
#include <thread>

namespace {

namespace fs = std::filesystem;

std::string contentOf(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// Runs `work` in a process of its own, which ends with its result.
pid_t inChild(const std::function<int()>& work)
{
    const pid_t child = fork();
    if (child == 0) {
        alarm(60);
        _exit(work());
    }
    return child;
}

int endOf(pid_t child)
{
    int status = -1;
    waitpid(child, &status, 0);
    return status;
}

// A process that writes to the store without end. Each write that was acknowledged it says on a pipe.
class Writer
{
public:
    Writer(const std::string& path, int first)
    {
        EXPECT_EQ(pipe(mPipe), 0);
        mChild = inChild([&] { return writeFrom(first, path); });
        close(mPipe[1]);
    }

    // Kills it and returns the numbers of the writes that were acknowledged.
    std::vector<int> kill() const
    {
        ::kill(mChild, SIGKILL);
        const int status = endOf(mChild);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << "a write failed: " << status;
        std::vector<int> acknowledged;
        for (int number = 0; read(mPipe[0], &number, sizeof number) == sizeof number;)
            acknowledged.push_back(number);
        close(mPipe[0]);
        return acknowledged;
    }

    // Every few writes there is a pack.
    static bool isPack(int number) { return number % 8 == 0; }
    static std::string key(int number) { return "writer." + std::to_string(number); }
    // Of every size up to some pages.
    static std::string text(int number)
    {
        return std::string(static_cast<size_t>(number * 997 % 9000), static_cast<char>('a' + number % 26));
    }

private:
    int writeFrom(int number, const std::string& path) const
    {
        CoreStore store(path);
        for (;; ++number) {
            const int status = isPack(number) ? store.installPack(packOf(std::to_string(number)))
                                              : store.write(GROUP_MENU, key(number), text(number));
            if (status != STORE_OK)
                return status;
            if (::write(mPipe[1], &number, sizeof number) != sizeof number)
                return -1;
        }
    }

    // Its parts say the same, so that half of one shows.
    static OperatorPack packOf(const std::string& text)
    {
        return {
            {{GROUP_MENU, "first", text}, {GROUP_MENU, "last", text}}, {{"model", text}}, {{{text, text}}}, {}};
    }

    int mPipe[2] = {};
    pid_t mChild = -1;
};

void expectSound(const std::string& path)
{
    Sqlite::Connection connection;
    ASSERT_EQ(connection.open(path, SQLITE_OPEN_READWRITE), SQLITE_OK);
    sqlite3_busy_timeout(connection.handle(), 2000);
    Sqlite::Statement statement;
    ASSERT_EQ(statement.prepare(connection, "PRAGMA integrity_check"), SQLITE_OK);
    Sqlite::Statement::Run run(statement);
    EXPECT_EQ(run.step(), SQLITE_ROW);
    EXPECT_EQ(run.text(0), "ok");
}

void expectWholePack(CoreStore& store)
{
    OperatorPack pack;
    ASSERT_EQ(store.exportPack(pack), STORE_OK);
    if (pack.settings.size() != 2)
        return; // none was written yet
    const std::string& text = pack.device["model"];
    EXPECT_EQ(pack.settings[0].value, SettingValue(text));
    EXPECT_EQ(pack.settings[1].value, SettingValue(text));
    EXPECT_EQ(pack.channels->at(0).id, text);
}

void expectWritten(CoreStore& store, const std::vector<int>& numbers)
{
    for (int number : numbers) {
        SettingValue value;
        if (Writer::isPack(number))
            continue; // a later one took its place
        ASSERT_EQ(store.read(GROUP_MENU, Writer::key(number), value), STORE_OK) << number;
        ASSERT_EQ(value, SettingValue(Writer::text(number))) << number;
    }
}

// The menu as the user sees it, every text of it.
std::string wholeMenu(MenuNode* node, int depth = 0)
{
    std::string texts = node->title() + '\n';
    node->clearChildren();
    node->loadChildren();
    const std::vector<Entry*> children = node->mChildren;
    for (Entry* entry : children) {
        if (entry->isHidden())
            continue;
        texts += entry->label() + (entry->isEnabled() ? "|" : "-") + entry->valueText() + '\n';
        if (EntryRegistry::instance()->kindOf(entry) == ENTRY_NODE && depth < 3)
            texts += wholeMenu(static_cast<NodeAdapter*>(entry)->node(), depth + 1);
    }
    return texts;
}

} // namespace

// Each kill hits one of two writers, or both, at any moment of their start or of their work.
TEST(Crash, NoAcknowledgedWriteIsLost)
{
    constexpr int kills = 10;
    size_t written = 0;
    runCampaign(2, 30, 120, [&](Dice& dice) {
        const QTemporaryDir dir;
        const std::string path = dir.filePath("core.db").toStdString();
        std::vector<int> acknowledged;
        std::optional<Writer> writers[2];
        for (int round = 1; round <= kills; ++round) {
            for (int i : {0, 1}) {
                if (!writers[i])
                    writers[i].emplace(path, (2 * round + i) * 100000);
            }
            std::this_thread::sleep_for(std::chrono::microseconds(dice.below(150000)));
            const int spared = round < kills ? dice.below(3) : -1;
            for (int i : {0, 1}) {
                if (i == spared)
                    continue;
                const std::vector<int> numbers = writers[i]->kill();
                acknowledged.insert(acknowledged.end(), numbers.begin(), numbers.end());
                writers[i].reset();
            }
            CoreStore store(path);
            expectSound(path);
            expectWholePack(store);
            expectWritten(store, acknowledged);
            EXPECT_FALSE(fs::exists(path + ".set-aside-1"));
        }
        written += acknowledged.size();
    });
    std::cerr << written << " acknowledged writes\n";
}

namespace {

// The store's file and its companions, by what they add to its name.
using Files = std::map<std::string, std::string>;

Files filesAt(const std::string& path)
{
    Files files;
    for (const char* companion : {"", "-wal", "-shm"}) {
        if (fs::exists(path + companion))
            files[companion] = contentOf(path + companion);
    }
    return files;
}

// A store as a program leaves it that ends well, and one that is killed.
std::vector<Files> soundFiles()
{
    const QTemporaryDir dir;
    const std::string path = dir.filePath("core.db").toStdString();
    const auto writeTo = [](CoreStore& store, int count) {
        for (int number = 0; number < count; ++number)
            EXPECT_EQ(store.write(GROUP_MENU, Writer::key(number), Writer::text(number)), STORE_OK);
    };
    std::optional<CoreStore> store(path);
    writeTo(*store, 5);
    store.reset();
    std::vector<Files> states = {filesAt(path)};
    store.emplace(path);
    writeTo(*store, 10);
    states.push_back(filesAt(path));
    EXPECT_EQ(states.back().size(), 3u);
    return states;
}

// Flips bits of a file, more often in its header than elsewhere, or cuts it short.
void damage(Dice& dice, std::string& file)
{
    if (dice.oneIn(4)) {
        file.resize(static_cast<size_t>(dice.below(file.size())));
        return;
    }
    const size_t range = dice.oneIn(3) ? 100 : file.size();
    for (int bits = 1 + dice.below(8); bits > 0; --bits) {
        char& byte = file[static_cast<size_t>(dice.below(range))];
        byte = static_cast<char>(byte ^ 1 << dice.below(8));
    }
}

// Puts a damaged store at `path` and returns what it is.
Files damagedStoreAt(const std::string& path, Dice& dice)
{
    static const std::vector<Files> sound = soundFiles();
    Files files = dice.pick(sound);
    damage(dice, std::next(files.begin(), dice.below(files.size()))->second);
    for (const auto& [companion, content] : files)
        std::ofstream(path + companion, std::ios::binary) << content;
    return files;
}

// Starts as the program does, up to the menu. 0 when that can be used, and a store that was set aside is named in the
// log and took a new one's place that can be written.
int startMenu(const std::string& path)
{
    const LogCapture log;
    CoreStore::use(path);
    CoreStore& store = CoreStore::instance();
    ApiProvider::instance();
    auto* root = static_cast<NodeAdapter*>(EntryRegistry::instance()->find("SetupHeadlines"))->node();
    const std::string texts = wholeMenu(root);
    const bool isUsable = std::count(texts.begin(), texts.end(), '\n') > 6;
    if (fs::exists(path + ".set-aside-1"))
        return !isUsable || log.text().find("kept as ") == std::string::npos ||
               store.write(GROUP_MENU, "mine", 1) != STORE_OK;
    return !isUsable && log.text().find("failed") == std::string::npos;
}

} // namespace

TEST(Crash, ADamagedStoreStillGivesAMenu)
{
    int setAside = 0;
    runCampaign(60, 2000, 60, [&](Dice& dice) {
        const QTemporaryDir dir;
        const std::string path = dir.filePath("core.db").toStdString();
        Files files = damagedStoreAt(path, dice);
        EXPECT_EQ(endOf(inChild([&] { return startMenu(path); })), 0);
        const std::string kept = path + ".set-aside-1";
        if (!fs::exists(kept))
            return;
        ++setAside;
        EXPECT_EQ(contentOf(kept), files[""]);
        EXPECT_EQ(contentOf(kept + "-wal"), files["-wal"]);
    });
    std::cerr << setAside << " stores were set aside\n";
}

// It ends when it is asked to, unless what was damaged is the identity, for which it waits.
TEST(Crash, TheProgramStartsOnADamagedStore)
{
    runCampaign(2, 40, 60, [](Dice& dice) {
        const QTemporaryDir dir;
        const std::string log = dir.filePath("log").toStdString();
        damagedStoreAt(dir.filePath("core.db").toStdString(), dice);
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("VISTANE_DB", dir.filePath("core.db"));
        environment.insert("VISTANE_LOG", dir.filePath("log"));
        program.setProcessEnvironment(environment);
        program.start(QStringLiteral(VISTANE_MENU), QStringList());
        const auto waitsForIdentity = [&] {
            return contentOf(log).find("cannot get IMSI") != std::string::npos;
        };
        while (!program.waitForFinished(100) && !waitsForIdentity()) {
            EXPECT_TRUE(QCopChannel::send(menuChannel, ""));
            HostBus::flush();
        }
        if (waitsForIdentity())
            program.kill();
        else
            EXPECT_TRUE(program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0)
                << contentOf(log);
        program.waitForFinished();
    });
}
