#pragma once

#include "vtTypes.h"

// The settings store as the phone's programs see it: typed values under a group number and a key. Reads see
// the user's value where there is one and else the operator's; writes go to the user's layer and are on disk
// when they return 0. Another process's write is seen by the very next read.
//
// Every operation returns a StoreStatus (CoreStore.h), 0 for success. A failed read leaves the output alone;
// a failed write changes nothing.
class VistaneSettingMgr
{
public:
    // The process-wide store; opened by the first operation, closed when the program ends.
    static VistaneSettingMgr* getSettingMgrInstance();

    int getInt(int group, const char* key, int& value);
    int setInt(int group, const char* key, int value);
    int getBoolean(int group, const char* key, bool& value);
    int setBoolean(int group, const char* key, bool value);
    int getString(int group, const char* key, vtTypes::String& value);
    int setString(int group, const char* key, const vtTypes::String& value);
};
