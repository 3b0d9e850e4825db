#include "CoreStore.h"
#include "OperatorPack.h"
#include "TestStore.h"

#include <gtest/gtest.h>

TEST(Pack, TheBuiltInOneStartsAMenu)
{
    const OperatorPack& pack = OperatorPack::builtIn();
    EXPECT_FALSE(pack.device.at("imsi").empty());
    bool found = false;
    for (const OperatorPack::Setting& setting : pack.settings)
        found = found || (setting.group == 5 && setting.key == "SetupHeadlines.ChildIDs");
    EXPECT_TRUE(found);
}

TEST(Pack, FaultsAreNamedAndNothingIsTaken)
{
    const struct
    {
        const char* json;
        const char* error;
    } cases[] = {
        {"{\n  \"settings\": {,}\n}", "line 2, column 1"},
        {"", "line 1, column 1: "},
        {"{} x", "line 1, column 4: "},
        {"[]", "the pack: "},
        {R"({"seting": {}})", "seting: "},
        {R"({"settings": []})", "settings: "},
        {R"({"settings": {"VtCore.Menue": {}}})", "VtCore.Menue: "},
        {R"({"settings": {"VtCore.Menu": 1}})", "VtCore.Menu: "},
        {R"({"settings": {"VtCore.Menu": {"": 1}}})", "VtCore.Menu.: "},
        {R"({"settings": {"VtCore.Menu": {"a\u0000b": 1}}})", "VtCore.Menu.a"},
        {R"({"settings": {"VtCore.Menu": {"a.b": 2147483648}}})", "VtCore.Menu.a.b: is no 32-bit integer"},
        {R"({"settings": {"VtCore.Menu": {"a.b": 1.5}}})", "VtCore.Menu.a.b: is no 32-bit integer"},
        {R"({"settings": {"VtCore.Menu": {"a.b": null}}})", "VtCore.Menu.a.b: "},
        {R"({"settings": {"VtCore.Menu": {"a.b": ["x"]}}})", "VtCore.Menu.a.b: "},
        {R"({"settings": {"VtCore.Menu": {"a.b": "\ud83d"}}})", "VtCore.Menu.a.b: "},
        {"{\"settings\": {\"VtCore.Menu\": {\"a.b\": \"\xff\"}}}", "line 1, column "},
        {R"({"device": {"colour": "red"}})", "device colour: is no fact"},
        {R"({"device": {"imsi": 1}})", "device imsi: "},
        {R"({"device": {"friendly": 1}})", "device friendly: "},
        {R"({"device": {"roaming": "x"}})", "device roaming: "},
        {R"({"channels": {}})", "channels: "},
        {R"({"channels": [1]})", "channels item 1: "},
        {R"({"channels": [{"title": "x"}]})", "channels item 1 id: "},
        {R"({"channels": [{"id": "a"}, {"id": "a"}]})", "channels a: "},
        {R"({"channels": [{"id": "a", "name": "x"}]})", "channels a name: "},
        {R"({"channels": [{"id": "a", "title": 1}]})", "channels a title: "},
        {R"({"profiles": [{"id": "a"}]})", "profiles a name: "},
        {R"({"profiles": [{"id": "a", "name": "x\ny"}]})", "profiles a name: "},
        {R"({"profiles": [{"id": "a", "name": "x", "selectable": 1}]})", "profiles a selectable: "},
    };
    for (const auto& [json, expected] : cases) {
        OperatorPack pack;
        pack.device["imsi"] = "kept";
        std::string error;
        EXPECT_FALSE(OperatorPack::parse(json, pack, error)) << json;
        EXPECT_TRUE(error.starts_with(expected)) << json << " gave " << error;
        EXPECT_EQ(pack.device["imsi"], "kept");
    }
}

TEST(Pack, WhatIsInstalledIsExported)
{
    const TestStore store(R"({
        "settings": {"VtCore.Menu": {"n": -2147483648, "b": false, "t": "\u00e4\n\\n"},
                     "VtNewsReader.UI": {"u": 1}},
        "device": {"imsi": "00101", "roaming": 2, "friendly": true},
        "channels": [{"id": "b", "title": ""}, {"id": "a"}],
        "profiles": [{"id": "p", "name": "P", "selectable": false}]})");
    OperatorPack first;
    ASSERT_EQ(CoreStore::instance().exportPack(first), STORE_OK);
    OperatorPack second;
    std::string error;
    ASSERT_TRUE(OperatorPack::parse(first.toJson(), second, error)) << error;
    EXPECT_EQ(second.settings.size(), 4u);
    EXPECT_EQ(second.device["roaming"], "2");
    EXPECT_EQ(second.device["friendly"], "true");
    ASSERT_EQ(second.channels->size(), 2u);
    EXPECT_EQ((*second.channels)[0].title, "");
    EXPECT_EQ((*second.channels)[1].title, std::nullopt);
    EXPECT_FALSE((*second.profiles)[0].selectable);
    EXPECT_EQ(second.toJson(), first.toJson());
}

TEST(Pack, InstallingReplacesTheOperatorsLayerOnly)
{
    const TestStore store(R"({
        "settings": {"VtCore.Menu": {"gone": 1, "stays": 1, "mine": 1}},
        "device": {"imsi": "1", "model": "M"}, "channels": [{"id": "c", "title": "C"}],
        "profiles": [{"id": "p", "name": "P"}, {"id": "q", "name": "Q"}]})");
    CoreStore& core = CoreStore::instance();
    core.write(5, "mine", 3);
    core.setCurrentProfile("q");

    OperatorPack pack;
    std::string error;
    ASSERT_TRUE(OperatorPack::parse(R"({"settings": {"VtCore.Menu": {"stays": 2, "mine": 2}},
        "device": {"imsi": "2"}, "profiles": [{"id": "q", "name": "Q2"}]})",
                                    pack, error))
        << error;
    ASSERT_EQ(core.installPack(pack), STORE_OK);

    SettingValue value;
    std::string text;
    EXPECT_EQ(core.read(5, "gone", value), STORE_NOT_FOUND);
    core.read(5, "stays", value);
    EXPECT_EQ(value, SettingValue(2));
    core.read(5, "mine", value);
    EXPECT_EQ(value, SettingValue(3));
    core.fact("imsi", text);
    EXPECT_EQ(text, "2");
    core.fact("model", text);
    EXPECT_EQ(text, "M");
    std::vector<OperatorPack::Channel> channels;
    core.channels(channels);
    EXPECT_EQ(channels.size(), 1u);
    core.currentProfile(text);
    EXPECT_EQ(text, "q");
}

TEST(Pack, AProfileIsInForceWheneverOneCanBeChosen)
{
    const TestStore store;
    CoreStore& core = CoreStore::instance();
    // The profiles that packs bring one after the other, and the one then in force.
    const std::pair<std::vector<OperatorPack::Profile>, const char*> steps[] = {
        {{{"a", "A", false}, {"b", "B", true}, {"c", "C", true}}, "b"},
        {{{"c", "C", true}, {"b", "B", false}}, "b"},
        {{{"a", "A", false}, {"d", "D", true}}, "d"},
        {{{"a", "A", false}}, ""},
        {{}, ""},
        {{{"a", "A", true}}, "a"},
    };
    for (const auto& [profiles, expected] : steps) {
        OperatorPack pack;
        pack.profiles = profiles;
        ASSERT_EQ(core.installPack(pack), STORE_OK);
        std::string current;
        core.currentProfile(current);
        EXPECT_EQ(current, expected);
    }
}

TEST(Pack, AddingAndRemovingProfilesLeavesOneInForce)
{
    const TestStore store(R"({"profiles": []})");
    CoreStore& core = CoreStore::instance();
    const auto inForce = [&core] {
        std::string current;
        core.currentProfile(current);
        return current;
    };
    core.addProfile({"locked", "L", false});
    EXPECT_EQ(inForce(), "");
    core.addProfile({"a", "A", true});
    core.addProfile({"b", "B", true});
    EXPECT_EQ(inForce(), "a");
    EXPECT_EQ(core.removeProfile("a"), STORE_OK);
    EXPECT_EQ(inForce(), "b");
    EXPECT_EQ(core.removeProfile("a"), STORE_NOT_FOUND);
    core.removeProfile("b");
    EXPECT_EQ(inForce(), "");
}

TEST(Pack, ARefusedInstallationChangesNothing)
{
    const TestStore store(R"({"settings": {"VtCore.Menu": {"n": 1}}, "device": {"imsi": "1"}})");
    CoreStore& core = CoreStore::instance();
    OperatorPack pack;
    pack.settings.push_back({5, "n", 2});
    pack.device["imsi"] = "2";
    pack.channels = {{{"same", "A"}, {"same", "B"}}};
    EXPECT_NE(core.installPack(pack), STORE_OK);

    SettingValue value;
    std::string text;
    core.read(5, "n", value);
    EXPECT_EQ(value, SettingValue(1));
    core.fact("imsi", text);
    EXPECT_EQ(text, "1");
    EXPECT_EQ(core.write(5, "n", 3), STORE_OK);
}
