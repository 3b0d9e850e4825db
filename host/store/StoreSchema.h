#pragma once

#include "OperatorPack.h"
#include "Scene.h"
#include "Sqlite.h"

// Layout of the store's file. A change of the tables takes a new schema version and a step that brings older
// files up to it; a file of a newer version is left to the newer program.
namespace StoreSchema {

constexpr int version = 1;

// Sets `found` to the version that a file carries, 0 for a file without tables. Returns SQLite's result code.
int readVersion(Sqlite::Connection& connection, int& found);

// Sets `empty` to whether a file has no tables at all.
int readEmptiness(Sqlite::Connection& connection, bool& empty);

// SQLITE_ERROR when a table or a column of this version is missing.
int checkTables(Sqlite::Connection& connection);

// Makes the tables, all or nothing, and fills them from `pack`; a file that another process has filled
// meanwhile is left as it is.
int create(Sqlite::Connection& connection, const OperatorPack& pack);

// Puts `pack` in place of the pack layer, inside the caller's transaction.
int writePack(Sqlite::Connection& connection, const OperatorPack& pack);

// Puts `channels` in place of those there are, inside the caller's transaction.
int writeChannels(Sqlite::Connection& connection, const std::vector<Scene::Channel>& channels);

// Puts the first profile that can be chosen in force when none is; to be called inside the transaction of
// whatever changed the profiles.
int putProfileInForce(Sqlite::Connection& connection);

} // namespace StoreSchema
