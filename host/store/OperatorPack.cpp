#include "OperatorPack.h"

#include "Log.h"
#include "SettingGroups.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

// Must stand outside every namespace.
static void loadResources()
{
    Q_INIT_RESOURCE(packs);
}

namespace {

const Log logger("VistaneStore");

QJsonValue toJson(int value)
{
    return value;
}

QJsonValue toJson(bool value)
{
    return value;
}

QJsonValue toJson(const std::string& value)
{
    return QString::fromStdString(value);
}

OperatorPack readBuiltIn()
{
    loadResources();
    QFile file(QStringLiteral(":/packs/en.json"));
    OperatorPack pack;
    std::string error = "missing";
    if (!file.open(QIODevice::ReadOnly) || !OperatorPack::parse(file.readAll(), pack, error))
        logger(3, "the built-in pack cannot be used: %s", error.c_str());
    return pack;
}

} // namespace

QByteArray OperatorPack::toJson() const
{
    QJsonObject document;
    QJsonObject groups;
    for (const Setting& setting : settings) {
        const QString group = QString::fromUtf8(settingGroupName(setting.group));
        QJsonObject keys = groups[group].toObject();
        keys[QString::fromStdString(setting.key)] =
            std::visit([](const auto& value) { return ::toJson(value); }, setting.value);
        groups[group] = keys;
    }
    document["settings"] = groups;

    QJsonObject facts;
    for (const auto& [name, value] : device)
        facts[QString::fromStdString(name)] = QString::fromStdString(value);
    document["device"] = facts;

    if (channels) {
        QJsonArray list;
        for (const Channel& channel : *channels) {
            QJsonObject item = {{"id", ::toJson(channel.id)}};
            if (channel.title)
                item["title"] = ::toJson(*channel.title);
            list.append(item);
        }
        document["channels"] = list;
    }
    if (profiles) {
        QJsonArray list;
        for (const Profile& profile : *profiles)
            list.append(QJsonObject{{"id", ::toJson(profile.id)},
                                    {"name", ::toJson(profile.name)},
                                    {"selectable", profile.selectable}});
        document["profiles"] = list;
    }
    return QJsonDocument(document).toJson();
}

const OperatorPack& OperatorPack::builtIn()
{
    static const OperatorPack pack = readBuiltIn();
    return pack;
}
