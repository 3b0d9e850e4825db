#pragma once

#include "CoreStore.h"
#include "EntryRegistry.h"
#include "MenuNode.h"
#include "TestStore.h"

#include <gtest/gtest.h>

// A store that holds the built-in pack, in which every entry is visible and enabled, and the phone of ./run.
class MenuStore : public TestStore
{
public:
    enum Texts { FROM_PACK, KEYS }; // KEYS: each text of the menu group is its own key

    explicit MenuStore(Texts texts = FROM_PACK)
    {
        OperatorPack pack = OperatorPack::builtIn();
        for (OperatorPack::Setting& setting : pack.settings) {
            if (texts == KEYS && setting.group == 5 && std::holds_alternative<std::string>(setting.value))
                setting.value = setting.key;
        }
        EXPECT_EQ(CoreStore::instance().installPack(pack), STORE_OK);
        loadDemoScene();
    }
};

// The node registered under `name`.
inline MenuNode* nodeOf(const char* name)
{
    return static_cast<NodeAdapter*>(EntryRegistry::instance()->find(name))->node();
}
