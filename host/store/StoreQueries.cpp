#include "StoreQueries.h"

#include <iterator>

namespace {

// In the order of StoreQueries::Name.
constexpr const char* texts[] = {
    "SELECT type, value FROM setting WHERE grp = ?1 AND key = ?2 ORDER BY layer DESC LIMIT 1",
    "INSERT OR REPLACE INTO setting(grp, key, layer, type, value) VALUES(?1, ?2, 1, ?3, ?4)",
    "DELETE FROM setting WHERE grp = ?1 AND key = ?2 AND layer = 1",
    // The other columns come from the row that has the greatest layer.
    "SELECT grp, key, type, value, max(layer) FROM setting GROUP BY grp, key ORDER BY grp, key",
    "SELECT grp, key, type, value FROM setting WHERE layer = 0 ORDER BY grp, key",
    "SELECT value FROM fact WHERE name = ?1 AND value <> ''",
    "INSERT OR REPLACE INTO fact(name, value) VALUES(?1, ?2)",
    "SELECT id, title FROM channel ORDER BY position",
    "SELECT id, title FROM channel WHERE id = ?1",
    "INSERT INTO channel(id, title) VALUES(?1, ?2) ON CONFLICT(id) DO UPDATE SET title = excluded.title",
    "DELETE FROM channel WHERE id = ?1",
    "SELECT id, name, selectable FROM profile ORDER BY position",
    "SELECT id, name, selectable FROM profile WHERE id = ?1",
    R"(INSERT INTO profile(id, name, selectable) VALUES(?1, ?2, ?3)
       ON CONFLICT(id) DO UPDATE SET name = excluded.name, selectable = excluded.selectable)",
    "DELETE FROM profile WHERE id = ?1",
    "SELECT id FROM profile WHERE current",
    "UPDATE profile SET current = (id = ?1) WHERE EXISTS(SELECT 1 FROM profile WHERE id = ?1)",
};
static_assert(std::size(texts) == StoreQueries::Count);

} // namespace

Sqlite::Statement& StoreQueries::operator[](Name name)
{
    Sqlite::Statement& statement = mStatements[name];
    if (!statement.isPrepared())
        statement.prepare(mConnection, texts[name]);
    return statement;
}
