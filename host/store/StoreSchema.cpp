#include "StoreSchema.h"

#include "StoreTransaction.h"

#include <sqlite3.h>

namespace {

// `type` is the index of the alternative in SettingValue, `layer` the value of CoreStore::Layer.
const char* const tables = R"sql(
    CREATE TABLE setting(grp INTEGER NOT NULL, key TEXT NOT NULL, layer INTEGER NOT NULL,
                         type INTEGER NOT NULL, value NOT NULL, PRIMARY KEY(grp, key, layer)) WITHOUT ROWID;
    CREATE TABLE fact(name TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID;
    CREATE TABLE channel(position INTEGER PRIMARY KEY, id TEXT NOT NULL UNIQUE, title TEXT);
    CREATE TABLE profile(position INTEGER PRIMARY KEY, id TEXT NOT NULL UNIQUE, name TEXT NOT NULL,
                         selectable INTEGER NOT NULL, current INTEGER NOT NULL DEFAULT 0);
    PRAGMA user_version = 1;
)sql";
static_assert(StoreSchema::version == 1, "the last line of the tables sets it");

int readNumber(Sqlite::Connection& connection, const char* sql, int& number)
{
    Sqlite::Statement statement;
    if (const int result = statement.prepare(connection, sql); result != SQLITE_OK)
        return result;
    Sqlite::Statement::Run run(statement);
    if (const int result = run.step(); result != SQLITE_ROW)
        return result;
    number = run.number(0);
    return SQLITE_OK;
}

// Runs `sql` once for each item of `items`; `runOne` gives it the item's values.
template <typename Items, typename RunOne>
int forEach(Sqlite::Connection& connection, const char* sql, const Items& items, RunOne runOne)
{
    Sqlite::Statement statement;
    int result = statement.prepare(connection, sql);
    for (auto item = items.begin(); result == SQLITE_OK && item != items.end(); ++item) {
        result = runOne(statement, *item);
        if (result == SQLITE_DONE)
            result = SQLITE_OK;
    }
    return result;
}

int writeSettings(Sqlite::Connection& connection, const std::vector<OperatorPack::Setting>& settings)
{
    if (const int result = connection.execute("DELETE FROM setting WHERE layer = 0"); result != SQLITE_OK)
        return result;
    return forEach(
        connection, "INSERT OR REPLACE INTO setting VALUES(?1, ?2, 0, ?3, ?4)", settings,
        [](Sqlite::Statement& statement, const OperatorPack::Setting& setting) {
            return std::visit(
                [&](const auto& value) {
                    const auto type = static_cast<int>(setting.value.index());
                    return Sqlite::Statement::Run(statement, setting.group, setting.key, type, value).step();
                },
                setting.value);
        });
}

int readCurrentProfile(Sqlite::Connection& connection, std::string& id)
{
    Sqlite::Statement statement;
    if (const int result = statement.prepare(connection, "SELECT id FROM profile WHERE current");
        result != SQLITE_OK)
        return result;
    Sqlite::Statement::Run run(statement);
    const int result = run.step();
    if (result == SQLITE_ROW)
        id = run.text(0);
    return result == SQLITE_ROW || result == SQLITE_DONE ? SQLITE_OK : result;
}

// The profile in force stays in force when the new list still has it, else the first one to choose follows it.
int writeProfiles(Sqlite::Connection& connection, const std::vector<OperatorPack::Profile>& profiles)
{
    std::string current;
    int result = readCurrentProfile(connection, current);
    if (result == SQLITE_OK)
        result = connection.execute("DELETE FROM profile");
    if (result == SQLITE_OK)
        result = forEach(
            connection, "INSERT INTO profile(id, name, selectable, current) VALUES(?1, ?2, ?3, ?1 = ?4)",
            profiles, [&current](Sqlite::Statement& statement, const OperatorPack::Profile& profile) {
                return Sqlite::Statement::Run(statement, profile.id, profile.name, profile.selectable, current)
                    .step();
            });
    return result == SQLITE_OK ? StoreSchema::putProfileInForce(connection) : result;
}

} // namespace

namespace StoreSchema {

int readVersion(Sqlite::Connection& connection, int& found)
{
    return readNumber(connection, "PRAGMA user_version", found);
}

int readEmptiness(Sqlite::Connection& connection, bool& empty)
{
    int tableCount = 0;
    const int result = readNumber(connection, "SELECT count(*) FROM sqlite_master", tableCount);
    empty = tableCount == 0;
    return result;
}

int checkTables(Sqlite::Connection& connection)
{
    constexpr const char* reads[] = {
        "SELECT grp, key, layer, type, value FROM setting",
        "SELECT name, value FROM fact",
        "SELECT position, id, title FROM channel",
        "SELECT position, id, name, selectable, current FROM profile",
    };
    for (const char* read : reads) {
        Sqlite::Statement statement;
        if (const int result = statement.prepare(connection, read); result != SQLITE_OK)
            return result;
    }
    return SQLITE_OK;
}

int create(Sqlite::Connection& connection, const OperatorPack& pack)
{
    StoreTransaction transaction(connection);
    int found = 0;
    int result = transaction.result();
    if (result == SQLITE_OK)
        result = readVersion(connection, found);
    if (result == SQLITE_OK && found == 0) {
        result = connection.execute(tables);
        if (result == SQLITE_OK)
            result = writePack(connection, pack);
    }
    return result == SQLITE_OK ? transaction.commit() : result;
}

int writePack(Sqlite::Connection& connection, const OperatorPack& pack)
{
    int result = writeSettings(connection, pack.settings);
    if (result == SQLITE_OK && pack.profiles)
        result = writeProfiles(connection, *pack.profiles);
    return result;
}

int writeChannels(Sqlite::Connection& connection, const std::vector<Scene::Channel>& channels)
{
    if (const int result = connection.execute("DELETE FROM channel"); result != SQLITE_OK)
        return result;
    return forEach(connection, "INSERT INTO channel(id, title) VALUES(?1, ?2)", channels,
                   [](Sqlite::Statement& statement, const Scene::Channel& channel) {
                       return Sqlite::Statement::Run(statement, channel.id, channel.title).step();
                   });
}

int putProfileInForce(Sqlite::Connection& connection)
{
    return connection.execute(R"(
        UPDATE profile SET current = 1
        WHERE position = (SELECT min(position) FROM profile WHERE selectable)
          AND NOT EXISTS(SELECT 1 FROM profile WHERE current))");
}

} // namespace StoreSchema
