#pragma once

#include "Sqlite.h"

// A write transaction: everything until commit() happens, or nothing when it isn't reached.
class StoreTransaction
{
public:
    explicit StoreTransaction(Sqlite::Connection& connection)
        : mConnection(connection), mResult(connection.execute("BEGIN IMMEDIATE")), mOpen(mResult == 0)
    {
    }
    ~StoreTransaction()
    {
        if (mOpen)
            mConnection.execute("ROLLBACK");
    }
    StoreTransaction(const StoreTransaction&) = delete;
    StoreTransaction& operator=(const StoreTransaction&) = delete;

    // SQLite's result code of the beginning; when it is not 0, there is no transaction.
    int result() const { return mResult; }

    int commit()
    {
        const int result = mConnection.execute("COMMIT");
        mOpen = result != 0;
        return result;
    }

private:
    Sqlite::Connection& mConnection;
    int mResult;
    bool mOpen;
};
