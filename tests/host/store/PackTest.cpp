#include "CoreStore.h"
#include "TestStore.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

namespace {

struct Fault
{
    std::string json;
    const char* error; // begins with it
};

// Nothing of a document with a fault is taken, and the message says where it is.
template <typename Document>
void expectRefused(std::initializer_list<Fault> faults)
{
    for (const auto& [json, expected] : faults) {
        Document document;
        std::string error;
        EXPECT_FALSE(Document::parse(QByteArray::fromStdString(json), document, error)) << json;
        EXPECT_TRUE(error.starts_with(expected)) << json.substr(0, 200) << " gave " << error;
    }
}

std::string setting(const std::string& text)
{
    return R"({"settings": {"VtCore.Menu": {)" + text + "}}}";
}

std::string profileInForce()
{
    std::string current;
    EXPECT_EQ(CoreStore::instance().currentProfile(current), STORE_OK);
    return current;
}

SettingValue valueOf(int group, const char* key)
{
    SettingValue value;
    EXPECT_EQ(CoreStore::instance().read(group, key, value), STORE_OK) << key;
    return value;
}

} // namespace

TEST(Pack, FaultsAreNamed)
{
    expectRefused<OperatorPack>({
        {"{\n  \"settings\": {,}\n}", "line 2, column 1"},
        {"", "line 1, column 1: "},
        {"{} x", "line 1, column 4: "},
        {std::string(100'000, '['), "line 1, column "},
        {"[]", "the pack: "},
        {R"({"seting": {}})", "seting: "},
        {R"({"settings": []})", "settings: "},
        {R"({"settings": {"VtCore.Menue": {}}})", "VtCore.Menue: "},
        {setting(R"("": 1)"), "VtCore.Menu.: "},
        {setting(R"("a\u0000b": 1)"), "VtCore.Menu.a"},
        {setting(R"("a.b": 2147483648)"), "VtCore.Menu.a.b: is no 32-bit integer"},
        {setting(R"("a.b": 1.5)"), "VtCore.Menu.a.b: is no 32-bit integer"},
        {setting(R"("a.b": null)"), "VtCore.Menu.a.b: "},
        {setting(R"("a.ChildIDs": ["A", "B"])"), "VtCore.Menu.a.ChildIDs: is a list; "},
        {setting(R"("a.b": "one\ntwo")"), "VtCore.Menu.a.b: has more than one line"},
        {setting(R"("a.b": "\ud83d")"), "VtCore.Menu.a.b: "},
        {setting(R"("a.b": "\u0000")"), "VtCore.Menu.a.b: "},
        {setting("\"a.b\": \"\xff\""), "line 1, column "},
        {"{\n" + setting(R"("a": "{\"a\": \\", "b": [],
            "\u0061": 2)")
                     .substr(1),
         "line 3, column 13: \"a\" is there twice"},
        {R"({"profiles": [], "profiles": []})", "line 1, column 18: \"profiles\" is there twice"},
        {R"({"device": {"imsi": "1"}})",
         "device: is one phone's; a pack holds none of it, see vistanectl scene load"},
        {R"({"channels": []})", "channels: is one phone's; "},
        {R"({"profiles": [1]})", "profiles item 1: "},
        {R"({"profiles": [{"name": "x"}]})", "profiles item 1 id: "},
        {R"({"profiles": [{"id": "a", "name": "A"}, {"id": "a", "name": "B"}]})", "profiles a: is there twice"},
        {R"({"profiles": [{"id": "a", "title": "x"}]})", "profiles a title: "},
        {R"({"profiles": [{"id": "a", "name": "x\ny"}]})", "profiles a name: "},
        {R"({"profiles": [{"id": "a", "name": "\ud800\udc44ISABLE:x"}]})", "profiles a name: "},
        {R"({"profiles": [{"id": "a", "name": "x", "selectable": 1}]})", "profiles a selectable: "},
    });
    expectRefused<Scene>({
        {R"({"settings": {}})", "settings: is no section of a scene"},
        {R"({"device": {"colour": "red"}})", "device colour: is no fact"},
        {R"({"device": {"imsi": 1}})", "device imsi: "},
        {R"({"device": {"roaming": "x"}})", "device roaming: "},
        {R"({"channels": [{"id": "a"}, {"id": "a"}]})", "channels a: "},
        {R"({"figures": {"Time": 1}})", "figures Time: "},
        {R"({"figures": {"LastUpdateTime": "1"}})", "figures LastUpdateTime: "},
    });
    OperatorPack pack;
    std::string error;
    EXPECT_TRUE(OperatorPack::parse(
        R"({"settings": {"VtCore.Menu": {"a": "b", "b": "a"}, "VtCore.UI": {"a": 1}}})", pack, error))
        << "the same key elsewhere: " << error;
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
    const char* const json = R"({"settings": {"VtCore.Menu": {"stays": "\u00e4\t\\n", "mine": 2}},
                                 "profiles": [{"id": "q", "name": "Q2", "selectable": false}]})";
    OperatorPack pack;
    std::string text;
    ASSERT_TRUE(OperatorPack::parse(json, pack, text)) << text;
    ASSERT_EQ(core.installPack(pack), STORE_OK);

    EXPECT_EQ(valueOf(5, "mine"), SettingValue(3));
    EXPECT_EQ(profileInForce(), "q");
    core.fact("imsi", text);
    EXPECT_EQ(text, "1");
    std::vector<Scene::Channel> channels;
    core.channels(channels);
    EXPECT_EQ(channels.size(), 2U);
    OperatorPack exported;
    ASSERT_EQ(core.exportPack(exported), STORE_OK);
    EXPECT_EQ(QJsonDocument::fromJson(exported.toJson()), QJsonDocument::fromJson(json))
        << exported.toJson().constData();

    pack.settings = {{5, "stays", 2}};
    pack.profiles = {{{"same", "A"}, {"same", "B"}}};
    EXPECT_NE(core.installPack(pack), STORE_OK);
    EXPECT_EQ(valueOf(5, "stays"), SettingValue("\u00e4\t\\n")) << "nothing of a pack that is refused";
    EXPECT_EQ(profileInForce(), "q");
    EXPECT_EQ(core.write(5, "n", 3), STORE_OK);
}

TEST(Pack, ASceneReplacesWhatItNames)
{
    const TestStore store(R"({"device": {"imsi": "1", "model": "M"}, "channels": [{"id": "a"}]})");
    CoreStore& core = CoreStore::instance();
    Scene scene;
    std::string text;
    ASSERT_TRUE(Scene::parse(R"({"device": {"imsi": "2"}, "figures": {"ItemsDownloaded": 7}})", scene, text))
        << text;
    ASSERT_EQ(core.loadScene(scene), STORE_OK);
    core.fact("imsi", text);
    EXPECT_EQ(text, "2");
    core.fact("model", text);
    EXPECT_EQ(text, "M");
    EXPECT_EQ(valueOf(1, "RuntimeValues.ItemsDownloaded"), SettingValue(7));

    scene.device["imsi"] = "3";
    scene.channels = {{{"same", "A"}, {"same", "B"}}};
    EXPECT_NE(core.loadScene(scene), STORE_OK);
    core.fact("imsi", text);
    EXPECT_EQ(text, "2") << "nothing of a scene that is refused";
    std::vector<Scene::Channel> channels;
    core.channels(channels);
    EXPECT_EQ(channels.size(), 1U);
}

TEST(Pack, AProfileIsInForceWheneverOneCanBeChosen)
{
    const TestStore store;
    CoreStore& core = CoreStore::instance();
    // The profiles that packs bring one after the other, and the one then in force.
    const std::pair<std::vector<OperatorPack::Profile>, const char*> packs[] = {
        {{{"a", "A", false}, {"b", "B", true}, {"c", "C", true}}, "b"},
        {{{"c", "C", true}, {"b", "B", false}}, "b"},
        {{{"a", "A", false}, {"d", "D", true}}, "d"},
        {{{"a", "A", false}}, ""},
        {{}, ""},
    };
    for (const auto& [profiles, expected] : packs) {
        OperatorPack pack;
        pack.profiles = profiles;
        ASSERT_EQ(core.installPack(pack), STORE_OK);
        EXPECT_EQ(profileInForce(), expected);
    }
    core.addProfile({"locked", "L", false});
    EXPECT_EQ(profileInForce(), "");
    core.addProfile({"a", "A", true});
    core.addProfile({"b", "B", true});
    EXPECT_EQ(profileInForce(), "a");
    EXPECT_EQ(core.removeProfile("a"), STORE_OK);
    EXPECT_EQ(profileInForce(), "b");
    EXPECT_EQ(core.removeProfile("a"), STORE_NOT_FOUND);
    core.removeProfile("b");
    EXPECT_EQ(profileInForce(), "");
}
