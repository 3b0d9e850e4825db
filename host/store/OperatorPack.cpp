#include "OperatorPack.h"

#include "JsonReader.h"
#include "ListText.h"
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

class PackReader : public JsonReader
{
public:
    bool read(const QByteArray& json, OperatorPack& pack)
    {
        const auto moved = [this](const char* name) {
            return [this, name](const QJsonValue&) {
                return fail(name, "is one phone's; a pack holds none of it, see vistanectl scene load");
            };
        };
        return readDocument(
            json, "pack",
            {{"settings", [&](const QJsonValue& section) { return readSettings(section, pack); }},
             {"profiles", [&](const QJsonValue& section) { return readProfiles(section, pack); }},
             {"device", moved("device")},
             {"channels", moved("channels")}});
    }

private:
    bool readSettings(const QJsonValue& section, OperatorPack& pack)
    {
        return readMembers("settings", section, [&](const QString& group, const QJsonValue& settings) {
            const int number = settingGroupNumber(group.toStdString());
            if (number < 0)
                return fail(group, "is no setting group");
            return readMembers(group, settings, [&](const QString& key, const QJsonValue& json) {
                const QString name = group + '.' + key;
                if (key.isEmpty() || !key.isValidUtf16() || key.contains(QChar(0)))
                    return fail(name, "is no key");
                SettingValue value;
                if (!readValue(name, json, value))
                    return false;
                pack.settings.push_back({number, key.toStdString(), std::move(value)});
                return true;
            });
        });
    }

    bool readProfiles(const QJsonValue& section, OperatorPack& pack)
    {
        pack.profiles.emplace();
        return readItems("profiles", {"id", "name", "selectable"}, section,
                         [&](const QString& name, const QJsonObject& item) {
                             OperatorPack::Profile& profile = pack.profiles->emplace_back();
                             const QJsonValue selectable = item.value("selectable");
                             if (!readId(name, item, profile.id) ||
                                 !readLine(name + " name", item["name"], profile.name))
                                 return false;
                             if (ListText::beginsWithMark(profile.name))
                                 return fail(name + " name", "begins with the mark of a locked choice");
                             if (!selectable.isUndefined() && !selectable.isBool())
                                 return fail(name + " selectable", "is not true or false");
                             profile.selectable = selectable.toBool(true);
                             return true;
                         });
    }
};

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

bool OperatorPack::parse(const QByteArray& json, OperatorPack& pack, std::string& error)
{
    OperatorPack result;
    PackReader reader;
    const bool good = reader.read(json, result);
    if (good)
        pack = std::move(result);
    else
        error = reader.error();
    return good;
}
