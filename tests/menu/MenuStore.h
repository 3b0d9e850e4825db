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
        for (auto& [group, key, value] : pack.settings)
            if (texts == KEYS && group == 5 && std::holds_alternative<std::string>(value))
                value = key;
        EXPECT_EQ(CoreStore::instance().installPack(pack), STORE_OK);
        loadDemoScene();
        EntryRegistry::instance(); // the links are read when the entries are made
    }
};

// The node registered under `name`.
inline MenuNode* nodeOf(const std::string& name)
{
    return static_cast<NodeAdapter*>(EntryRegistry::instance()->find(name))->node();
}
