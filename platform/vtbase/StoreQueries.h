#pragma once

#include "Sqlite.h"

#include <array>

// The store's everyday statements, prepared once.
class StoreQueries
{
public:
    enum Name {
        ReadSetting,   // group, key -> type, value
        WriteSetting,  // group, key, type, value
        ResetSetting,  // group, key
        ListSettings,  // -> group, key, type, value, layer
        ListPack,      // -> group, key, type, value
        ReadFact,      // name -> value
        WriteFact,     // name, value
        ListFacts,     // -> name, value
        ListChannels,  // -> id, title
        ReadChannel,   // id -> id, title
        WriteChannel,  // id, title
        RemoveChannel, // id
        ListProfiles,  // -> id, name, selectable
        ReadProfile,   // id -> id, name, selectable
        WriteProfile,  // id, name, selectable
        RemoveProfile, // id
        ReadCurrent,   // -> id
        WriteCurrent,  // id
        Count
    };

    // SQLite's result code.
    int prepare(Sqlite::Connection& connection);

    Sqlite::Statement& operator[](Name name) { return mStatements[name]; }

private:
    std::array<Sqlite::Statement, Count> mStatements;
};
