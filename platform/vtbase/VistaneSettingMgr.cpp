#include "VistaneSettingMgr.h"

#include "CoreStore.h"
#include "Failure.h"
#include "vtString.h"

namespace {

template <typename Value>
int read(int group, const char* key, Value& value)
{
    SettingValue stored = Value();
    const int status = CoreStore::instance().read(group, key, stored);
    if (status != STORE_OK)
        return status;
    auto* found = std::get_if<Value>(&stored);
    if (!found)
        return STORE_WRONG_TYPE;
    value = std::move(*found);
    return STORE_OK;
}

int save(int group, const char* key, const SettingValue& value)
{
    const int status = CoreStore::instance().write(group, key, value);
    if (status != STORE_OK)
        Failure::tell(Failure::Kind::NotSaved);
    return status;
}

} // namespace

VistaneSettingMgr* VistaneSettingMgr::getSettingMgrInstance()
{
    static VistaneSettingMgr manager;
    return &manager;
}

int VistaneSettingMgr::getInt(int group, const char* key, int& value)
{
    return read(group, key, value);
}

int VistaneSettingMgr::setInt(int group, const char* key, int value)
{
    return save(group, key, value);
}

int VistaneSettingMgr::getBoolean(int group, const char* key, bool& value)
{
    return read(group, key, value);
}

int VistaneSettingMgr::setBoolean(int group, const char* key, bool value)
{
    return save(group, key, value);
}

int VistaneSettingMgr::getString(int group, const char* key, vtTypes::String& value)
{
    std::string utf8;
    if (const int status = read(group, key, utf8); status != STORE_OK)
        return status;
    return vtStringFromUtf8(utf8, value) ? STORE_OK : STORE_FAILED;
}

int VistaneSettingMgr::setString(int group, const char* key, const vtTypes::String& value)
{
    std::string utf8;
    if (!vtStringEncodeUtf8(value, utf8))
        return STORE_WRONG_TYPE;
    return save(group, key, utf8);
}
