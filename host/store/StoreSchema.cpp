#include "StoreSchema.h"

#include <QString>

#include <sqlite3.h>

#include <set>

namespace {

// `type` is the index of the alternative in SettingValue, `layer` the value of CoreStore::Layer. The keys of the settings
// stand in an index of their own: in one with the values, a search would copy every long value that it passes.
constexpr char settingTable[] =
    R"sql(CREATE TABLE setting(grp INTEGER NOT NULL, key TEXT NOT NULL, layer INTEGER NOT NULL,
                         type INTEGER NOT NULL, value NOT NULL, PRIMARY KEY(grp, key, layer)))sql";
constexpr char oldSettingTable[] = // version 1
    R"sql(CREATE TABLE setting(grp INTEGER NOT NULL, key TEXT NOT NULL, layer INTEGER NOT NULL,
                         type INTEGER NOT NULL, value NOT NULL, PRIMARY KEY(grp, key, layer)) WITHOUT ROWID)sql";
constexpr const char* otherTables[] = {
    R"sql(CREATE TABLE fact(name TEXT PRIMARY KEY, value TEXT NOT NULL) WITHOUT ROWID)sql",
    R"sql(CREATE TABLE channel(position INTEGER PRIMARY KEY, id TEXT NOT NULL UNIQUE, title TEXT))sql",
    R"sql(CREATE TABLE profile(position INTEGER PRIMARY KEY, id TEXT NOT NULL UNIQUE, name TEXT NOT NULL,
                         selectable INTEGER NOT NULL, current INTEGER NOT NULL DEFAULT 0))sql",
};
constexpr char setVersion[] = "PRAGMA user_version = 2";
static_assert(StoreSchema::version == 2, "the line above sets it");

const Sqlite::Result ok(SQLITE_OK);

// Files of earlier programs may be indented otherwise.
QString inOneLine(std::string_view sql)
{
    return QString::fromUtf8(sql.data(), static_cast<qsizetype>(sql.size())).simplified();
}

std::multiset<QString> statementsOf(const char* settings)
{
    std::multiset<QString> statements = {inOneLine(settings)};
    for (const char* table : otherTables)
        statements.insert(inOneLine(table));
    return statements;
}

Sqlite::Result readVersion(Sqlite::Connection& connection, int& found)
{
    Sqlite::Query query(connection, "PRAGMA user_version");
    Sqlite::Run run = query.run();
    const Sqlite::Result result = run.step();
    if (!result.isRow())
        return result;
    found = static_cast<int>(run.number(0));
    return ok;
}

// The statements that made what is in the file; the indexes that SQLite makes by itself have none.
Sqlite::Result readStatements(Sqlite::Connection& connection, std::multiset<QString>& found)
{
    Sqlite::Query query(connection, "SELECT sql FROM sqlite_schema WHERE sql IS NOT NULL");
    Sqlite::Run run = query.run();
    Sqlite::Result result = run.step();
    for (; result.isRow(); result = run.step())
        found.insert(inOneLine(run.text(0)));
    return result;
}

// Runs `query` once for each item of `items`; `runOne` gives it the item's values.
template <typename Items, typename RunOne>
Sqlite::Result forEach(Sqlite::Connection& connection, const char* sql, const Items& items, RunOne runOne)
{
    Sqlite::Query query(connection, sql);
    Sqlite::Result result = ok;
    for (auto item = items.begin(); result.isOk() && item != items.end(); ++item)
        result = runOne(query, *item);
    return result;
}

Sqlite::Result writeSettings(Sqlite::Connection& connection, const std::vector<OperatorPack::Setting>& settings)
{
    if (const Sqlite::Result result = connection.execute("DELETE FROM setting WHERE layer = 0"); !result.isOk())
        return result;
    return forEach(connection, "INSERT OR REPLACE INTO setting VALUES(?1, ?2, 0, ?3, ?4)", settings,
                   [](Sqlite::Query& query, const OperatorPack::Setting& setting) {
                       return std::visit(
                           [&](const auto& value) {
                               const auto type = static_cast<int>(setting.value.index());
                               return query.run(setting.group, setting.key, type, value).step();
                           },
                           setting.value);
                   });
}

Sqlite::Result readCurrentProfile(Sqlite::Connection& connection, std::string& id)
{
    Sqlite::Query query(connection, "SELECT id FROM profile WHERE current");
    Sqlite::Run run = query.run();
    const Sqlite::Result result = run.step();
    if (!result.isRow())
        return result;
    id = run.text(0);
    return ok;
}

// The profile in force stays in force when the new list still has it, else the first one to choose follows it.
Sqlite::Result writeProfiles(Sqlite::Connection& connection, const std::vector<OperatorPack::Profile>& profiles)
{
    std::string current;
    Sqlite::Result result = readCurrentProfile(connection, current);
    if (result.isOk())
        result = connection.execute("DELETE FROM profile");
    if (result.isOk())
        result = forEach(connection,
                         "INSERT INTO profile(id, name, selectable, current) VALUES(?1, ?2, ?3, ?1 = ?4)",
                         profiles, [&current](Sqlite::Query& query, const OperatorPack::Profile& profile) {
                             return query.run(profile.id, profile.name, profile.selectable, current).step();
                         });
    return result.isOk() ? StoreSchema::putProfileInForce(connection) : result;
}

} // namespace

namespace StoreSchema {

Sqlite::Result classify(Sqlite::Connection& connection, Found& found)
{
    std::multiset<QString> statements;
    Sqlite::Result result = readVersion(connection, found.version);
    if (result.isOk())
        result = readStatements(connection, statements);
    found.kind = found.version > version                                                ? Found::Newer
                 : found.version == 0 && statements.empty()                             ? Found::Unused
                 : found.version == version && statements == statementsOf(settingTable) ? Found::Ours
                 : found.version == 1 && statements == statementsOf(oldSettingTable)    ? Found::Older
                                                                                        : Found::Foreign;
    return result;
}

Sqlite::Result create(Sqlite::Connection& connection, const OperatorPack& pack)
{
    Sqlite::Transaction transaction(connection);
    int found = 0;
    Sqlite::Result result = transaction.begun();
    if (result.isOk())
        result = readVersion(connection, found);
    if (!result.isOk() || found != 0)
        return result;
    result = connection.execute(settingTable);
    for (const char* table : otherTables)
        if (result.isOk())
            result = connection.execute(table);
    if (result.isOk())
        result = connection.execute(setVersion);
    if (result.isOk())
        result = writePack(connection, pack);
    return result.isOk() ? transaction.commit() : result;
}

Sqlite::Result bringUpToDate(Sqlite::Connection& connection)
{
    const char* const steps[] = {
        "ALTER TABLE setting RENAME TO old_setting",
        settingTable,
        "INSERT INTO setting SELECT grp, key, layer, type, value FROM old_setting",
        "DROP TABLE old_setting",
        setVersion,
    };
    Sqlite::Transaction transaction(connection);
    int found = 0;
    Sqlite::Result result = transaction.begun();
    if (result.isOk())
        result = readVersion(connection, found);
    if (!result.isOk() || found == version)
        return result;
    for (const char* step : steps)
        if (result.isOk())
            result = connection.execute(step);
    return result.isOk() ? transaction.commit() : result;
}

Sqlite::Result writePack(Sqlite::Connection& connection, const OperatorPack& pack)
{
    const Sqlite::Result result = writeSettings(connection, pack.settings);
    return result.isOk() && pack.profiles ? writeProfiles(connection, *pack.profiles) : result;
}

Sqlite::Result writeChannels(Sqlite::Connection& connection, const std::vector<Scene::Channel>& channels)
{
    if (const Sqlite::Result result = connection.execute("DELETE FROM channel"); !result.isOk())
        return result;
    return forEach(connection, "INSERT INTO channel(id, title) VALUES(?1, ?2)", channels,
                   [](Sqlite::Query& query, const Scene::Channel& channel) {
                       return query.run(channel.id, channel.title).step();
                   });
}

Sqlite::Result putProfileInForce(Sqlite::Connection& connection)
{
    return connection.execute(R"(
        UPDATE profile SET current = 1
        WHERE position = (SELECT min(position) FROM profile WHERE selectable)
          AND NOT EXISTS(SELECT 1 FROM profile WHERE current))");
}

} // namespace StoreSchema
