#include "TestStore.h"

#include "CoreStore.h"

#include <gtest/gtest.h>

TestStore::TestStore(const char* json)
{
    qputenv("VISTANE_DB", path().c_str());
    CoreStore::use(path());

    OperatorPack pack;
    std::string error;
    EXPECT_TRUE(OperatorPack::parse(json, pack, error)) << error;
    for (std::string_view fact : OperatorPack::factNames())
        pack.device.try_emplace(std::string(fact));
    if (!pack.channels)
        pack.channels.emplace();
    if (!pack.profiles)
        pack.profiles.emplace();
    EXPECT_EQ(CoreStore::instance().installPack(pack), STORE_OK);
}

std::string TestStore::path() const
{
    return mDir.filePath(QStringLiteral("core.db")).toStdString();
}
