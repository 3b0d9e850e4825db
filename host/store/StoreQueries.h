#pragma once

#include "Sqlite.h"

#include <array>

// The store's everyday statements. Each is prepared when it is first asked for: a menu that opens needs only two.
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

    // The connection has to outlive this.
    explicit StoreQueries(Sqlite::Connection& connection) : mConnection(connection) {}

    // Every run of a statement that can't be prepared fails.
    Sqlite::Statement& operator[](Name name);

private:
    Sqlite::Connection& mConnection;
    std::array<Sqlite::Statement, Count> mStatements;
};
