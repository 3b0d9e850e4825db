#include "TestStore.h"

#include "CoreStore.h"

#include <QFile>
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

    QJsonObject settings = QJsonDocument::fromJson(json).object();
    QJsonObject scene;
    for (const char* section : {"device", "channels", "figures"})
        if (const QJsonValue taken = settings.take(QLatin1String(section)); !taken.isUndefined())
            scene[QLatin1String(section)] = taken;
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
    QFile file(QStringLiteral(SOURCE_DIR "/share/scenes/demo.json"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    load(file.readAll());
}

std::string TestStore::path() const
{
    return mDir.filePath(QStringLiteral("core.db")).toStdString();
}
