#include "TestStore.h"

#include "CoreStore.h"
#include "FileContent.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

void load(const QByteArray& json)
{
    Scene scene;
    std::string error;
    EXPECT_TRUE(Scene::parse(json, scene, error)) << error;
    EXPECT_EQ(CoreStore::instance().loadScene(scene), STORE_OK);
}

} // namespace

TestStore::TestStore(const char* json)
{
    qputenv("VISTANE_DB", path().c_str());
    CoreStore::use(path());

    QJsonObject settings = QJsonDocument::fromJson(json).object(), scene;
    for (const QString section : {"device", "channels", "figures"})
        if (settings.contains(section))
            scene[section] = settings.take(section);
    OperatorPack pack;
    std::string error;
    EXPECT_TRUE(OperatorPack::parse(QJsonDocument(settings).toJson(), pack, error)) << error << json;
    if (!pack.profiles)
        pack.profiles.emplace();
    EXPECT_EQ(CoreStore::instance().installPack(pack), STORE_OK);
    load(QJsonDocument(scene).toJson());
}

void TestStore::loadDemoScene()
{
    load(QByteArray::fromStdString(contentOf(SOURCE_DIR "/share/scenes/demo.json")));
}

std::string TestStore::path() const
{
    return mDir.filePath(QStringLiteral("core.db")).toStdString();
}
