#include "CoreStore.h"
#include "Table.h"
#include "TestStore.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

namespace {

// Nothing of a document with a fault is taken, and the message says where it is. A row begins with a document, or with
// one setting of it, and ends with the beginning of the message.
template <typename Document>
void expectRefused(const std::vector<std::array<std::string, 2>>& rows)
{
    for (const auto& [text, expected] : rows) {
        const std::string json =
            text.starts_with('"') ? R"({"settings": {"VtCore.Menu": {)" + text + "}}}" : text;
        Document document;
        std::string error;
        EXPECT_FALSE(Document::parse(QByteArray::fromStdString(json), document, error)) << json;
        EXPECT_TRUE(error.starts_with(expected)) << json.substr(0, 200) << " gave " << error;
    }
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

std::string fact(const char* name)
{
    std::string text;
    EXPECT_EQ(CoreStore::instance().fact(name, text), STORE_OK) << name;
    return text;
}

size_t channelCount()
{
    std::vector<Scene::Channel> channels;
    EXPECT_EQ(CoreStore::instance().channels(channels), STORE_OK);
    return channels.size();
}

} // namespace

TEST(Pack, FaultsAreNamed)
{
    expectRefused<OperatorPack>(table<2>(R"(
|line 1, column 1: ;{} x|line 1, column 4: ;[]|the pack: ;{"seting": {}}|seting:
{"settings": []}|settings: ;{"settings": {"VtCore.Menue": {}}}|VtCore.Menue:
"": 1|VtCore.Menu.: ;"a\u0000b": 1|VtCore.Menu.a
"a.b": 2147483648|VtCore.Menu.a.b: is no 32-bit integer;"a.b": 1.5|VtCore.Menu.a.b: is no 32-bit integer
"a.b": null|VtCore.Menu.a.b: ;"a.ChildIDs": ["A", "B"]|VtCore.Menu.a.ChildIDs: is a list
"a.b": "one\ntwo"|VtCore.Menu.a.b: has more than one line
"a.b": "\ud83d"|VtCore.Menu.a.b: ;"a.b": "\u0000"|VtCore.Menu.a.b:
{"profiles": [], "profiles": []}|line 1, column 18: "profiles" is there twice
{"device": {"imsi": "1"}}|device: is one phone's
{"channels": []}|channels: is one phone's
{"profiles": [1]}|profiles item 1: ;{"profiles": [{"name": "x"}]}|profiles item 1 id:
{"profiles": [{"id": "a", "name": "A"}, {"id": "a", "name": "B"}]}|profiles a: is there twice
{"profiles": [{"id": "a", "title": "x"}]}|profiles a title:
{"profiles": [{"id": "a", "name": "x\ny"}]}|profiles a name:
{"profiles": [{"id": "a", "name": "\ud800\udc44ISABLE:x"}]}|profiles a name:
{"profiles": [{"id": "a", "name": "x", "selectable": 1}]}|profiles a selectable:)"));
    expectRefused<OperatorPack>({
        {"{\n  \"settings\": {,}\n}", "line 2, column 1"},
        {std::string(100'000, '['), "line 1, column "},
        {"\"a.b\": \"\xff\"", "line 1, column "},
        {R"("a": "{\"a\": \\", "b": [],
            "\u0061": 2)",
         "line 2, column 13: \"a\" is there twice"},
    });
    expectRefused<Scene>(table<2>(R"(
{"settings": {}}|settings: is no section of a scene
{"device": {"colour": "red"}}|device colour: is no fact
{"device": {"imsi": 1}}|device imsi: ;{"device": {"roaming": "x"}}|device roaming:
{"channels": [{"id": "a"}, {"id": "a"}]}|channels a:
{"figures": {"Time": 1}}|figures Time: ;{"figures": {"LastUpdateTime": "1"}}|figures LastUpdateTime:)"));
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
    // A text may be what a key is, and a group have the key of another.
    const char* const json = R"({
        "settings": {"VtCore.Menu": {"stays": "\u00e4\t\\n", "mine": 2}, "VtCore.UI": {"mine": 1}},
        "profiles": [{"id": "q", "name": "selectable", "selectable": false}]})";
    OperatorPack pack;
    std::string text;
    ASSERT_TRUE(OperatorPack::parse(json, pack, text)) << text;
    ASSERT_EQ(core.installPack(pack), STORE_OK);

    EXPECT_EQ(valueOf(5, "mine"), SettingValue(3));
    EXPECT_EQ(profileInForce(), "q");
    EXPECT_EQ(fact("imsi"), "1");
    EXPECT_EQ(channelCount(), 2U);
    OperatorPack exported;
    ASSERT_EQ(core.exportPack(exported), STORE_OK);
    EXPECT_EQ(QJsonDocument::fromJson(exported.toJson()), QJsonDocument::fromJson(json))
        << exported.toJson().constData();
}

TEST(Pack, ASceneReplacesWhatItNames)
{
    const TestStore store(R"({"device": {"imsi": "1", "model": "M"}, "channels": [{"id": "a"}]})");
    Scene scene;
    std::string error;
    ASSERT_TRUE(Scene::parse(R"({"device": {"imsi": "2"}, "figures": {"ItemsDownloaded": 7}})", scene, error))
        << error;
    ASSERT_EQ(CoreStore::instance().loadScene(scene), STORE_OK);
    EXPECT_EQ(fact("model"), "M");
    EXPECT_EQ(valueOf(1, "RuntimeValues.ItemsDownloaded"), SettingValue(7));

    scene.device["imsi"] = "3";
    scene.channels = {{{"same", "A"}, {"same", "B"}}};
    EXPECT_NE(CoreStore::instance().loadScene(scene), STORE_OK);
    EXPECT_EQ(fact("imsi"), "2") << "nothing of a scene that is refused";
    EXPECT_EQ(channelCount(), 1U);
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
    core.addProfile({"a", "A", true});
    core.addProfile({"b", "B", true});
    EXPECT_EQ(profileInForce(), "a");
    EXPECT_EQ(core.removeProfile("a"), STORE_OK);
    EXPECT_EQ(profileInForce(), "b");
    EXPECT_EQ(core.removeProfile("a"), STORE_NOT_FOUND);
}
