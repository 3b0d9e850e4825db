#include "CoreStore.h"
#include "OperatorPack.h"
#include "TestStore.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

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
        {R"({"seting": {}})", "seting: "},
        {R"({"settings": []})", "settings: "},
        {R"({"settings": {"VtCore.Menue": {}}})", "VtCore.Menue: "},
        {R"({"settings": {"VtCore.Menu": {"": 1}}})", "VtCore.Menu.: "},
        {R"({"settings": {"VtCore.Menu": {"a\u0000b": 1}}})", "VtCore.Menu.a"},
        {R"({"settings": {"VtCore.Menu": {"a.b": 2147483648}}})", "VtCore.Menu.a.b: is no 32-bit integer"},
        {R"({"settings": {"VtCore.Menu": {"a.b": null}}})", "VtCore.Menu.a.b: "},
        {R"({"settings": {"VtCore.Menu": {"a.b": "\ud83d"}}})", "VtCore.Menu.a.b: "},
        {"{\"settings\": {\"VtCore.Menu\": {\"a.b\": \"\xff\"}}}", "line 1, column "},
        {R"({"device": {"colour": "red"}})", "device colour: is no fact"},
        {R"({"device": {"imsi": 1}})", "device imsi: "},
        {R"({"device": {"roaming": "x"}})", "device roaming: "},
        {R"({"channels": [1]})", "channels item 1: "},
        {R"({"channels": [{"title": "x"}]})", "channels item 1 id: "},
        {R"({"channels": [{"id": "a"}, {"id": "a"}]})", "channels a: "},
        {R"({"channels": [{"id": "a", "name": "x"}]})", "channels a name: "},
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

TEST(Pack, InstallingReplacesTheOperatorsLayerOnly)
{
    const TestStore store(R"({
        "settings": {"VtCore.Menu": {"gone": 1, "stays": false, "mine": 1}},
        "device": {"imsi": "1", "roaming": 2}, "channels": [{"id": "b", "title": ""}, {"id": "a"}],
        "profiles": [{"id": "p", "name": "P"}, {"id": "q", "name": "Q"}]})");
    CoreStore& core = CoreStore::instance();
    core.write(5, "mine", 3);
    core.setCurrentProfile("q");
    OperatorPack pack;
    std::string text;
    ASSERT_TRUE(OperatorPack::parse(R"({"settings": {"VtCore.Menu": {"stays": "\u00e4\n\\n", "mine": 2}},
        "device": {"imsi": "2"}, "profiles": [{"id": "q", "name": "Q2", "selectable": false}]})",
                                    pack, text))
        << text;
    ASSERT_EQ(core.installPack(pack), STORE_OK);

    SettingValue value;
    core.read(5, "mine", value);
    EXPECT_EQ(value, SettingValue(3));
    core.currentProfile(text);
    EXPECT_EQ(text, "q");
    OperatorPack exported;
    ASSERT_EQ(core.exportPack(exported), STORE_OK);
    std::erase_if(exported.device, [](const auto& fact) { return fact.second.empty(); });
    EXPECT_EQ(QJsonDocument::fromJson(exported.toJson()), QJsonDocument::fromJson(R"({
        "settings": {"VtCore.Menu": {"stays": "\u00e4\n\\n", "mine": 2}},
        "device": {"imsi": "2", "roaming": "2"}, "channels": [{"id": "b", "title": ""}, {"id": "a"}],
        "profiles": [{"id": "q", "name": "Q2", "selectable": false}]})"))
        << exported.toJson().constData();

    pack.settings = {{5, "stays", 2}};
    pack.device["imsi"] = "3";
    pack.channels = {{{"same", "A"}, {"same", "B"}}};
    EXPECT_NE(core.installPack(pack), STORE_OK);
    core.read(5, "stays", value);
    EXPECT_EQ(value, SettingValue("\u00e4\n\\n")) << "nothing of a pack that is refused";
    core.fact("imsi", text);
    EXPECT_EQ(text, "2");
    EXPECT_EQ(core.write(5, "n", 3), STORE_OK);
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
