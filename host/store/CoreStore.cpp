#include "CoreStore.h"

#include "SettingGroups.h"
#include "StoreFile.h"
#include "StoreQueries.h"
#include "StoreSchema.h"
#include "StoreTransaction.h"

#include <QStandardPaths>
#include <QtGlobal>

#include <sqlite3.h>

#include <filesystem>

using Run = Sqlite::Statement::Run;

struct CoreStore::Database
{
    Sqlite::Connection connection;
    StoreQueries queries{connection};
    bool onDisk = false;
};

namespace {

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

// Closed when the program ends, so that SQLite tidies up its companion files.
Current& current()
{
    static Current current = {defaultPath(), nullptr};
    return current;
}

int readStatus(int result)
{
    switch (result & 0xff) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        return STORE_OK;
    case SQLITE_BUSY:
        return STORE_BUSY;
    default:
        return STORE_FAILED;
    }
}

int writeStatus(int result)
{
    switch (result & 0xff) {
    case SQLITE_READONLY:
    case SQLITE_FULL:
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
        return STORE_UNWRITABLE;
    default:
        return readStatus(result);
    }
}

template <typename... Values>
int runWrite(Sqlite::Statement& statement, const Values&... values)
{
    return writeStatus(Run(statement, values...).step());
}

// A change of rows that must be there.
template <typename... Values>
int runChange(Sqlite::Connection& connection, Sqlite::Statement& statement, const Values&... values)
{
    const int status = runWrite(statement, values...);
    return status == STORE_OK && connection.changes() == 0 ? STORE_NOT_FOUND : status;
}

// Calls `readRow` with each row of a run.
template <typename ReadRow>
int forEachRow(Sqlite::Statement& statement, ReadRow readRow)
{
    Run run(statement);
    int result = run.step();
    for (; result == SQLITE_ROW; result = run.step())
        readRow(run);
    return readStatus(result);
}

// Calls `readRow` with the only row of a run.
template <typename ReadRow, typename... Values>
int onlyRow(Sqlite::Statement& statement, ReadRow readRow, const Values&... values)
{
    Run run(statement, values...);
    const int result = run.step();
    if (result == SQLITE_DONE)
        return STORE_NOT_FOUND;
    if (result == SQLITE_ROW)
        readRow(run);
    return readStatus(result);
}

// A value out of the columns `type` and the next one. A text goes into the string that `value` may hold.
void readValue(const Run& run, int type, SettingValue& value)
{
    switch (run.number(type)) {
    case 0:
        value = run.number(type + 1);
        break;
    case 1:
        value = run.number(type + 1) != 0;
        break;
    default:
        if (auto* text = std::get_if<std::string>(&value))
            *text = run.text(type + 1);
        else
            value = std::string(run.text(type + 1));
    }
}

// Columns as of ListPack and ListSettings.
OperatorPack::Setting readSetting(const Run& row)
{
    OperatorPack::Setting setting = {row.number(0), std::string(row.text(1)), {}};
    readValue(row, 2, setting.value);
    return setting;
}

// Columns as of ListChannels and ReadChannel.
Scene::Channel readChannel(const Run& row)
{
    Scene::Channel channel;
    channel.id = row.text(0);
    if (!row.isNull(1))
        channel.title = row.text(1);
    return channel;
}

// Columns as of ListProfiles and ReadProfile.
OperatorPack::Profile readProfile(const Run& row)
{
    return {std::string(row.text(0)), std::string(row.text(1)), row.number(2) != 0};
}

// Runs `work`, which returns a status: all of it happens, or nothing.
template <typename Work>
int inTransaction(Sqlite::Connection& connection, Work work)
{
    StoreTransaction transaction(connection);
    int status = writeStatus(transaction.result());
    if (status == STORE_OK)
        status = work();
    return status == STORE_OK ? writeStatus(transaction.commit()) : status;
}

// Changes the profiles by `change`, which returns a status, and leaves one in force when one can be chosen.
template <typename Change>
int changeProfiles(Sqlite::Connection& connection, Change change)
{
    return inTransaction(connection, [&] {
        const int status = change();
        return status == STORE_OK ? writeStatus(StoreSchema::putProfileInForce(connection)) : status;
    });
}

// Hands over what was read, unless the reading failed.
template <typename Result>
int answer(int status, Result& result, Result& output)
{
    if (status == STORE_OK)
        output = std::move(result);
    return status;
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

CoreStore::CoreStore(const std::string& path) : mDatabase(std::make_unique<Database>())
{
    // A bare name could mean something to SQLite, as ":memory:" does.
    std::error_code error;
    const std::string absolute = std::filesystem::absolute(path, error).string();
    mDatabase->onDisk = StoreFile::open(absolute, mDatabase->connection);
}

CoreStore::~CoreStore() = default;

bool CoreStore::isOnDisk() const
{
    return mDatabase->onDisk;
}

int CoreStore::read(int group, std::string_view key, SettingValue& value)
{
    return onlyRow(
        mDatabase->queries[StoreQueries::ReadSetting], [&](const Run& row) { readValue(row, 0, value); }, group,
        key);
}

int CoreStore::write(int group, std::string_view key, const SettingValue& value)
{
    return std::visit(
        [&](const auto& bare) {
            return runWrite(mDatabase->queries[StoreQueries::WriteSetting], group, key,
                            static_cast<int>(value.index()), bare);
        },
        value);
}

int CoreStore::reset(int group, std::string_view key)
{
    return runChange(mDatabase->connection, mDatabase->queries[StoreQueries::ResetSetting], group, key);
}

int CoreStore::list(std::vector<Listed>& settings)
{
    std::vector<Listed> result;
    const int status = forEachRow(mDatabase->queries[StoreQueries::ListSettings], [&](const Run& row) {
        result.push_back({readSetting(row), static_cast<Layer>(row.number(4))});
    });
    return answer(status, result, settings);
}

int CoreStore::installPack(const OperatorPack& pack)
{
    Sqlite::Connection& connection = mDatabase->connection;
    return inTransaction(connection, [&] { return writeStatus(StoreSchema::writePack(connection, pack)); });
}

int CoreStore::exportPack(OperatorPack& pack)
{
    // All of it as of one moment, whatever another process writes meanwhile.
    if (const int begun = mDatabase->connection.execute("BEGIN"); begun != SQLITE_OK)
        return readStatus(begun);
    OperatorPack result;
    int status = forEachRow(mDatabase->queries[StoreQueries::ListPack],
                            [&](const Run& row) { result.settings.push_back(readSetting(row)); });
    if (status == STORE_OK)
        status = profiles(result.profiles.emplace());
    mDatabase->connection.execute("COMMIT");
    return answer(status, result, pack);
}

int CoreStore::loadScene(const Scene& scene)
{
    Sqlite::Connection& connection = mDatabase->connection;
    return inTransaction(connection, [&] {
        int status = STORE_OK;
        for (auto fact = scene.device.begin(); status == STORE_OK && fact != scene.device.end(); ++fact)
            status = setFact(fact->first, fact->second);
        for (auto figure = scene.figures.begin(); status == STORE_OK && figure != scene.figures.end(); ++figure)
            status = write(GROUP_DCD, figure->first, figure->second);
        if (status == STORE_OK && scene.channels)
            status = writeStatus(StoreSchema::writeChannels(connection, *scene.channels));
        return status;
    });
}

int CoreStore::fact(std::string_view name, std::string& value)
{
    return onlyRow(
        mDatabase->queries[StoreQueries::ReadFact], [&](const Run& row) { value = row.text(0); }, name);
}

int CoreStore::setFact(std::string_view name, std::string_view value)
{
    if (!Scene::isFact(name))
        return STORE_NOT_FOUND;
    std::string text;
    if (!Scene::factText(name, std::string(value), text))
        return STORE_WRONG_TYPE;
    return runWrite(mDatabase->queries[StoreQueries::WriteFact], name, text);
}

int CoreStore::channels(std::vector<Scene::Channel>& channels)
{
    std::vector<Scene::Channel> result;
    const int status = forEachRow(mDatabase->queries[StoreQueries::ListChannels],
                                  [&](const Run& row) { result.push_back(readChannel(row)); });
    return answer(status, result, channels);
}

int CoreStore::channel(std::string_view id, Scene::Channel& channel)
{
    return onlyRow(
        mDatabase->queries[StoreQueries::ReadChannel], [&](const Run& row) { channel = readChannel(row); }, id);
}

int CoreStore::addChannel(const Scene::Channel& channel)
{
    return runWrite(mDatabase->queries[StoreQueries::WriteChannel], channel.id, channel.title);
}

int CoreStore::removeChannel(std::string_view id)
{
    return runChange(mDatabase->connection, mDatabase->queries[StoreQueries::RemoveChannel], id);
}

int CoreStore::profiles(std::vector<OperatorPack::Profile>& profiles)
{
    std::vector<OperatorPack::Profile> result;
    const int status = forEachRow(mDatabase->queries[StoreQueries::ListProfiles],
                                  [&](const Run& row) { result.push_back(readProfile(row)); });
    return answer(status, result, profiles);
}

int CoreStore::profile(std::string_view id, OperatorPack::Profile& profile)
{
    return onlyRow(
        mDatabase->queries[StoreQueries::ReadProfile], [&](const Run& row) { profile = readProfile(row); }, id);
}

int CoreStore::addProfile(const OperatorPack::Profile& profile)
{
    return changeProfiles(mDatabase->connection, [&] {
        return runWrite(mDatabase->queries[StoreQueries::WriteProfile], profile.id, profile.name,
                        profile.selectable);
    });
}

int CoreStore::removeProfile(std::string_view id)
{
    return changeProfiles(mDatabase->connection, [&] {
        return runChange(mDatabase->connection, mDatabase->queries[StoreQueries::RemoveProfile], id);
    });
}

int CoreStore::currentProfile(std::string& id)
{
    const int status =
        onlyRow(mDatabase->queries[StoreQueries::ReadCurrent], [&](const Run& row) { id = row.text(0); });
    if (status != STORE_NOT_FOUND)
        return status;
    id.clear();
    return STORE_OK;
}

int CoreStore::setCurrentProfile(std::string_view id)
{
    return runChange(mDatabase->connection, mDatabase->queries[StoreQueries::WriteCurrent], id);
}
