#include "CoreStore.h"

#include "Failure.h"
#include "SettingCache.h"
#include "SettingGroups.h"
#include "StoreFile.h"
#include "StoreRows.h"
#include "StoreSchema.h"
#include "Text.h"

#include <QDeadlineTimer>
#include <QStandardPaths>
#include <QtGlobal>

#include <algorithm>
#include <filesystem>

using namespace StoreRows;

// The file, what it is opened by, and everything that is asked of it.
struct CoreStore::Database
{
    StoreFile file;
    Sqlite::Connection connection;
    SettingCache known{connection};
    bool onDisk = false;
    bool inTransaction = false;
    QDeadlineTimer impatient{
        0}; // until then no lock is waited for, and no file that was of no use is tried again

    Sqlite::Query readSetting{
        connection, "SELECT type, value FROM setting WHERE grp = ?1 AND key = ?2 ORDER BY layer DESC LIMIT 1"};
    Sqlite::Query writeSetting{
        connection, "INSERT OR REPLACE INTO setting(grp, key, layer, type, value) VALUES(?1, ?2, 1, ?3, ?4)"};
    Sqlite::Query resetSetting{connection, "DELETE FROM setting WHERE grp = ?1 AND key = ?2 AND layer = 1"};
    // The other columns come from the row that has the greatest layer.
    Sqlite::Query listSettings{
        connection,
        "SELECT type, value, grp, key, max(layer) FROM setting GROUP BY grp, key ORDER BY grp, key"};
    Sqlite::Query listPack{connection,
                           "SELECT type, value, grp, key FROM setting WHERE layer = 0 ORDER BY grp, key"};
    Sqlite::Query readFact{connection, "SELECT value FROM fact WHERE name = ?1"};
    Sqlite::Query writeFact{connection, "INSERT OR REPLACE INTO fact(name, value) VALUES(?1, ?2)"};
    Sqlite::Query removeFact{connection, "DELETE FROM fact WHERE name = ?1"};
    Sqlite::Query listChannels{connection, "SELECT id, title FROM channel ORDER BY position"};
    Sqlite::Query readChannel{connection, "SELECT id, title FROM channel WHERE id = ?1"};
    Sqlite::Query writeChannel{
        connection,
        "INSERT INTO channel(id, title) VALUES(?1, ?2) ON CONFLICT(id) DO UPDATE SET title = excluded.title"};
    Sqlite::Query removeChannel{connection, "DELETE FROM channel WHERE id = ?1"};
    Sqlite::Query listProfiles{connection, "SELECT id, name, selectable FROM profile ORDER BY position"};
    Sqlite::Query readProfile{connection, "SELECT id, name, selectable FROM profile WHERE id = ?1"};
    Sqlite::Query writeProfile{connection, R"(INSERT INTO profile(id, name, selectable) VALUES(?1, ?2, ?3)
                       ON CONFLICT(id) DO UPDATE SET name = excluded.name, selectable = excluded.selectable)"};
    Sqlite::Query removeProfile{connection, "DELETE FROM profile WHERE id = ?1"};
    Sqlite::Query readCurrent{connection, "SELECT id FROM profile WHERE current"};
    Sqlite::Query writeCurrent{
        connection, "UPDATE profile SET current = (id = ?1) WHERE EXISTS(SELECT 1 FROM profile WHERE id = ?1)"};
};

namespace {

int patience = 500;
CoreStore::Listener theListener;
constexpr int impatienceMs = 1000;
constexpr size_t mostNames = 1000; // what a message on the bus may hold

// Under these names, listeners are told of what is no setting.
constexpr char everything[] = "";
constexpr char channelsName[] = "channels";
constexpr char profilesName[] = "profiles";

std::string settingName(int group, std::string_view key)
{
    return std::string(settingGroupName(group)) + '.' + std::string(key);
}

std::string factName(std::string_view name)
{
    return "device." + std::string(name);
}

struct Current
{
    std::string path;
    std::unique_ptr<CoreStore> store;
};

std::string defaultPath()
{
    if (const QByteArray path = qgetenv("VISTANE_DB"); !path.isEmpty())
        return path.toStdString();
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return folder.toStdString() + "/vistane/core.db";
}

// A bare name could mean something to SQLite, as ":memory:" does. Empty when it can't be told: the working folder is gone.
std::string absolutePath(const std::string& path)
{
    std::error_code error;
    return std::filesystem::absolute(path, error).string();
}

// Closed when the program ends, so that SQLite tidies up its companion files.
Current& current()
{
    static Current current = {defaultPath(), nullptr};
    return current;
}

} // namespace

CoreStore& CoreStore::instance()
{
    if (!current().store)
        current().store = std::make_unique<CoreStore>(current().path);
    return *current().store;
}

void CoreStore::use(const std::string& path)
{
    current().store.reset();
    current().path = path;
}

void CoreStore::setPatience(int milliseconds)
{
    patience = milliseconds;
}

void CoreStore::onChanged(Listener listener)
{
    theListener = std::move(listener);
}

CoreStore::CoreStore(const std::string& path) : mPath(absolutePath(path))
{
    open(patience);
}

CoreStore::~CoreStore() = default;

void CoreStore::open(int patience)
{
    mDatabase = std::make_unique<Database>();
    const std::string reason = mDatabase->file.open(mPath, mDatabase->connection, patience);
    mDatabase->onDisk = reason.empty();
    mDatabase->impatient.setRemainingTime(mDatabase->onDisk ? 0 : impatienceMs);
    if (!mDatabase->onDisk && reason != mReason) {
        logger(3, "%s %s: using the built-in pack, and no change will be saved",
               Text::withoutControls(mPath).c_str(), reason.c_str());
        Failure::tell(Failure::Kind::NoStore);
    }
    mReason = reason;
}

// Whether the file is another one by now, or one at last.
bool CoreStore::reopen()
{
    if (mDatabase->onDisk ? !mDatabase->file.isReplaced(mDatabase->connection)
                          : !mDatabase->impatient.hasExpired())
        return false;
    open(mDatabase->onDisk ? patience : 0);
    return mDatabase->onDisk;
}

CoreStore::Database& CoreStore::forWriting()
{
    if (mDatabase->inTransaction)
        return *mDatabase;
    if (mDatabase->file.isReplaced(mDatabase->connection))
        open(patience);
    mDatabase->connection.setPatience(mDatabase->impatient.hasExpired() ? patience : 0);
    return *mDatabase;
}

// Runs a query that changes rows, of what listeners know as `name`. STORE_NOT_FOUND when there was none to change.
template <typename... Values>
StoreStatus CoreStore::change(std::string name, Sqlite::Query Database::*query, const Values&... values)
{
    Database& database = forWriting();
    StoreStatus status = writeStatus((database.*query).run(values...).step());
    if (status == STORE_OK && database.connection.changes() == 0)
        status = STORE_NOT_FOUND;
    if (status == STORE_OK)
        mChanged.push_back(std::move(name));
    afterWriting(status);
    return status;
}

// Runs `work`, which gets the connection and returns a status: all of it happens, or nothing.
template <typename Work>
StoreStatus CoreStore::inTransaction(Work work)
{
    Database& database = forWriting();
    Sqlite::Transaction transaction(database.connection);
    StoreStatus status = writeStatus(transaction.begun());
    database.inTransaction = true;
    if (status == STORE_OK)
        status = work(database.connection);
    database.inTransaction = false;
    if (status == STORE_OK)
        status = writeStatus(transaction.commit());
    afterWriting(status);
    return status;
}

void CoreStore::afterWriting(StoreStatus status)
{
    if (status == STORE_BUSY)
        mDatabase->impatient.setRemainingTime(impatienceMs);
    else
        mDatabase->file.noteLog();
    if (mDatabase->inTransaction)
        return;
    if (status == STORE_OK)
        tellChanges();
    mChanged.clear();
}

void CoreStore::tellChanges()
{
    const bool isAll = mChanged.size() > mostNames || std::ranges::count(mChanged, everything) > 0;
    if (theListener && !mChanged.empty())
        theListener(isAll ? std::vector<std::string>() : mChanged);
}

// Changes the profiles by `work`, which returns a status, and leaves one in force when one can be chosen.
template <typename Work>
StoreStatus CoreStore::changeProfiles(Work work)
{
    return inTransaction([&](Sqlite::Connection& connection) {
        const StoreStatus status = work();
        return status == STORE_OK ? writeStatus(StoreSchema::putProfileInForce(connection)) : status;
    });
}

bool CoreStore::isOnDisk() const
{
    return mDatabase->onDisk;
}

StoreStatus CoreStore::read(int group, std::string_view key, SettingValue& value)
{
    SettingCache& known = mDatabase->known;
    SettingCache::Answer answer;
    if (const auto* found = mDatabase->inTransaction ? nullptr : known.find(group, key)) {
        answer.status = found->status;
        if (answer.status == STORE_OK)
            value = found->value;
        return answer.status;
    }
    answer.status = onlyRow(
        mDatabase->readSetting, [&](const Run& row) { return readValue(row, answer.value); }, group, key);
    if (answer.status == STORE_OK)
        value = answer.value;
    if (!mDatabase->inTransaction && (answer.status == STORE_OK || answer.status == STORE_NOT_FOUND))
        known.add(group, key, std::move(answer));
    return answer.status;
}

StoreStatus CoreStore::write(int group, std::string_view key, const SettingValue& value)
{
    const auto type = static_cast<int>(value.index());
    return std::visit(
        [&](const auto& bare) {
            return change(settingName(group, key), &Database::writeSetting, group, key, type, bare);
        },
        value);
}

StoreStatus CoreStore::reset(int group, std::string_view key)
{
    return change(settingName(group, key), &Database::resetSetting, group, key);
}

StoreStatus CoreStore::list(std::vector<Listed>& settings)
{
    std::vector<Listed> result;
    const StoreStatus status =
        forEachSetting(mDatabase->listSettings, [&](OperatorPack::Setting&& setting, const Run& row) {
            result.push_back({std::move(setting), static_cast<Layer>(row.number(4))});
        });
    return answer(status, result, settings);
}

StoreStatus CoreStore::installPack(const OperatorPack& pack)
{
    return inTransaction([&](Sqlite::Connection& connection) {
        mChanged.push_back(everything);
        return writeStatus(StoreSchema::writePack(connection, pack));
    });
}

StoreStatus CoreStore::exportPack(OperatorPack& pack)
{
    // All of it as of one moment, whatever another process writes meanwhile.
    if (const Sqlite::Result begun = mDatabase->connection.execute("BEGIN"); !begun.isOk())
        return readStatus(begun);
    OperatorPack result;
    StoreStatus status = forEachSetting(mDatabase->listPack, [&](OperatorPack::Setting&& setting, const Run&) {
        result.settings.push_back(std::move(setting));
    });
    if (status == STORE_OK)
        status = profiles(result.profiles.emplace());
    (void)mDatabase->connection.execute("COMMIT");
    return answer(status, result, pack);
}

StoreStatus CoreStore::loadScene(const Scene& scene)
{
    return inTransaction([&](Sqlite::Connection& connection) {
        StoreStatus status = STORE_OK;
        for (auto fact = scene.device.begin(); status == STORE_OK && fact != scene.device.end(); ++fact)
            status = setFact(fact->first, fact->second);
        for (auto figure = scene.figures.begin(); status == STORE_OK && figure != scene.figures.end(); ++figure)
            status = write(GROUP_DCD, figure->first, figure->second);
        if (status != STORE_OK || !scene.channels)
            return status;
        mChanged.push_back(channelsName);
        return writeStatus(StoreSchema::writeChannels(connection, *scene.channels));
    });
}

StoreStatus CoreStore::fact(std::string_view name, std::string& value)
{
    const auto ask = [&] { return onlyRow(mDatabase->readFact, into(value, firstText), name); };
    const StoreStatus status = ask();
    return status == STORE_NOT_FOUND && !mDatabase->inTransaction && reopen() ? ask() : status;
}

StoreStatus CoreStore::setFact(std::string_view name, std::string_view value)
{
    if (!Scene::isFact(name))
        return STORE_NOT_FOUND;
    std::string text;
    if (!Scene::factText(name, std::string(value), text))
        return STORE_WRONG_TYPE;
    return change(factName(name), &Database::writeFact, name, text);
}

StoreStatus CoreStore::unsetFact(std::string_view name)
{
    return change(factName(name), &Database::removeFact, name);
}

StoreStatus CoreStore::channels(std::vector<Scene::Channel>& channels)
{
    return readAll(mDatabase->listChannels, channelOf, channels);
}

StoreStatus CoreStore::channel(std::string_view id, Scene::Channel& channel)
{
    return onlyRow(mDatabase->readChannel, into(channel, channelOf), id);
}

StoreStatus CoreStore::addChannel(const Scene::Channel& channel)
{
    return change(channelsName, &Database::writeChannel, channel.id, channel.title);
}

StoreStatus CoreStore::removeChannel(std::string_view id)
{
    return change(channelsName, &Database::removeChannel, id);
}

StoreStatus CoreStore::profiles(std::vector<OperatorPack::Profile>& profiles)
{
    return readAll(mDatabase->listProfiles, profileOf, profiles);
}

StoreStatus CoreStore::profile(std::string_view id, OperatorPack::Profile& profile)
{
    return onlyRow(mDatabase->readProfile, into(profile, profileOf), id);
}

StoreStatus CoreStore::addProfile(const OperatorPack::Profile& profile)
{
    return changeProfiles([&] {
        return change(profilesName, &Database::writeProfile, profile.id, profile.name,
                      static_cast<int>(profile.selectable));
    });
}

StoreStatus CoreStore::removeProfile(std::string_view id)
{
    return changeProfiles([&] { return change(profilesName, &Database::removeProfile, id); });
}

StoreStatus CoreStore::currentProfile(std::string& id)
{
    const StoreStatus status = onlyRow(mDatabase->readCurrent, into(id, firstText));
    if (status != STORE_NOT_FOUND)
        return status;
    id.clear();
    return STORE_OK;
}

StoreStatus CoreStore::setCurrentProfile(std::string_view id)
{
    return change(profilesName, &Database::writeCurrent, id);
}
