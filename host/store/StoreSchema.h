#pragma once

#include "OperatorPack.h"
#include "Scene.h"
#include "Sqlite.h"

// Layout of the store's file. A change of the tables takes a new schema version and a step that brings older
// files up to it; a file of a newer version is left to the newer program.
namespace StoreSchema {

constexpr int version = 2;

// What a file is, by its schema, and the version that it carries.
struct Found
{
    enum Kind { Unused, Ours, Older, Newer, Foreign } kind = Unused;
    int version = 0;
};

// Compares every table, index, view and trigger of a file with ours.
Sqlite::Result classify(Sqlite::Connection& connection, Found& found);

// Makes the tables, all or nothing, and fills them from `pack`; a file that another process has filled
// meanwhile is left as it is.
Sqlite::Result create(Sqlite::Connection& connection, const OperatorPack& pack);

// Brings an older file up to this version, all or nothing; one that another process has brought there meanwhile is left as
// it is.
Sqlite::Result bringUpToDate(Sqlite::Connection& connection);

// Each of these belongs inside the caller's transaction.

// Puts `pack` in place of the pack layer.
Sqlite::Result writePack(Sqlite::Connection& connection, const OperatorPack& pack);

// Puts `channels` in place of those there are.
Sqlite::Result writeChannels(Sqlite::Connection& connection, const std::vector<Scene::Channel>& channels);

// Puts the first profile that can be chosen in force when none is. To be called after whatever changed the profiles.
Sqlite::Result putProfileInForce(Sqlite::Connection& connection);

} // namespace StoreSchema
