#include "OperatorPack.h"
#include "SettingGroups.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QStringList>

#include <cmath>
#include <limits>

namespace {

// Reads one document; the first fault ends the reading and is kept in words.
class PackReader
{
public:
    bool read(const QByteArray& json, OperatorPack& pack)
    {
        QJsonParseError fault;
        const QJsonDocument document = QJsonDocument::fromJson(json, &fault);
        if (fault.error != QJsonParseError::NoError)
            return fail(placeOf(json, fault.offset), fault.errorString());
        if (!document.isObject())
            return fail("the pack", "is not an object");
        return readSections(document.object(), pack);
    }

    const std::string& error() const { return mError; }

private:
    using ReadSection = bool (PackReader::*)(const QJsonValue&, OperatorPack&);

    static QString placeOf(const QByteArray& json, int offset)
    {
        const QByteArray before = json.left(offset);
        const qsizetype lineStart = before.lastIndexOf('\n') + 1;
        return QStringLiteral("line %1, column %2")
            .arg(before.count('\n') + 1)
            .arg(QString::fromUtf8(before.mid(lineStart)).size() + 1);
    }

    bool fail(const QString& where, const QString& what)
    {
        mError = (where + ": " + what).toStdString();
        return false;
    }

    bool readSections(const QJsonObject& sections, OperatorPack& pack)
    {
        static const std::map<QString, ReadSection> readers = {
            {"settings", &PackReader::readSettings},
            {"device", &PackReader::readDevice},
            {"channels", &PackReader::readChannels},
            {"profiles", &PackReader::readProfiles},
        };
        for (auto section = sections.begin(); section != sections.end(); ++section) {
            const auto reader = readers.find(section.key());
            if (reader == readers.end())
                return fail(section.key(), "is no section of a pack");
            if (!(this->*reader->second)(section.value(), pack))
                return false;
        }
        return true;
    }

    bool readSettings(const QJsonValue& section, OperatorPack& pack)
    {
        if (!section.isObject())
            return fail("settings", "is not an object");
        const QJsonObject groups = section.toObject();
        for (auto group = groups.begin(); group != groups.end(); ++group) {
            const int number = settingGroupNumber(group.key().toStdString());
            if (number < 0)
                return fail(group.key(), "is no setting group");
            if (!group.value().isObject())
                return fail(group.key(), "is not an object");
            if (!readGroup(group.key(), number, group.value().toObject(), pack))
                return false;
        }
        return true;
    }

    bool readGroup(const QString& group, int number, const QJsonObject& settings, OperatorPack& pack)
    {
        for (auto setting = settings.begin(); setting != settings.end(); ++setting) {
            const QString name = group + '.' + setting.key();
            if (setting.key().isEmpty() || !setting.key().isValidUtf16() || setting.key().contains(QChar(0)))
                return fail(name, "is no key");
            SettingValue value;
            if (!readValue(name, setting.value(), value))
                return false;
            pack.settings.push_back({number, setting.key().toStdString(), std::move(value)});
        }
        return true;
    }

    bool readValue(const QString& name, const QJsonValue& json, SettingValue& value)
    {
        if (json.isBool()) {
            value = json.toBool();
            return true;
        }
        if (json.isDouble()) {
            value = 0;
            return readInteger(name, json, std::get<int>(value));
        }
        value = std::string();
        return readText(name, json, std::get<std::string>(value),
                        "is no integer, no true or false, and no text");
    }

    bool readInteger(const QString& name, const QJsonValue& json, int& number)
    {
        const double value = json.toDouble();
        using Limits = std::numeric_limits<int>;
        if (value != std::trunc(value) || value < Limits::min() || value > Limits::max())
            return fail(name, "is no 32-bit integer");
        number = static_cast<int>(value);
        return true;
    }

    bool readText(const QString& name, const QJsonValue& json, std::string& text,
                  const char* otherwise = "is no text")
    {
        if (!json.isString())
            return fail(name, otherwise);
        if (!json.toString().isValidUtf16())
            return fail(name, "holds half of a surrogate pair");
        text = json.toString().toStdString();
        return true;
    }

    // Texts that stand in a list, one a line.
    bool readLine(const QString& name, const QJsonValue& json, std::string& text)
    {
        return readText(name, json, text) &&
               (text.find('\n') == std::string::npos || fail(name, "has more than one line"));
    }

    bool readDevice(const QJsonValue& section, OperatorPack& pack)
    {
        if (!section.isObject())
            return fail("device", "is not an object");
        const QJsonObject facts = section.toObject();
        for (auto fact = facts.begin(); fact != facts.end(); ++fact) {
            const QString name = "device " + fact.key();
            SettingValue value;
            std::string text;
            if (!OperatorPack::isFact(fact.key().toStdString()))
                return fail(name, "is no fact of a device");
            if (!readValue(name, fact.value(), value))
                return false;
            if (!OperatorPack::factText(fact.key().toStdString(), value, text))
                return fail(name, "cannot have that value");
            pack.device[fact.key().toStdString()] = std::move(text);
        }
        return true;
    }

    bool readChannels(const QJsonValue& section, OperatorPack& pack)
    {
        pack.channels.emplace();
        return readItems("channels", {"id", "title"}, section,
                         [&](const QString& name, const QJsonObject& item) {
                             OperatorPack::Channel channel;
                             if (!readId(name, item, channel.id))
                                 return false;
                             if (item.contains("title") &&
                                 !readLine(name + " title", item["title"], channel.title.emplace()))
                                 return false;
                             pack.channels->push_back(std::move(channel));
                             return true;
                         });
    }

    bool readProfiles(const QJsonValue& section, OperatorPack& pack)
    {
        pack.profiles.emplace();
        return readItems("profiles", {"id", "name", "selectable"}, section,
                         [&](const QString& name, const QJsonObject& item) {
                             OperatorPack::Profile profile;
                             const QJsonValue selectable = item.value("selectable");
                             if (!readId(name, item, profile.id) ||
                                 !readLine(name + " name", item["name"], profile.name))
                                 return false;
                             if (!selectable.isUndefined() && !selectable.isBool())
                                 return fail(name + " selectable", "is not true or false");
                             profile.selectable = selectable.toBool(true);
                             pack.profiles->push_back(std::move(profile));
                             return true;
                         });
    }

    // A list of objects with the members `members`, whose identifiers differ. `readItem` gets the item's name
    // for messages and the item.
    template <typename ReadItem>
    bool readItems(const QString& name, const QStringList& members, const QJsonValue& section,
                   ReadItem readItem)
    {
        if (!section.isArray())
            return fail(name, "is not a list");
        QSet<QString> ids;
        int number = 0;
        for (const QJsonValue value : section.toArray()) {
            QString itemName = name + QStringLiteral(" item %1").arg(++number);
            if (!value.isObject())
                return fail(itemName, "is not an object");
            const QJsonObject item = value.toObject();
            const QString id = item["id"].toString();
            if (!id.isEmpty())
                itemName = name + ' ' + id;
            for (auto member = item.begin(); member != item.end(); ++member)
                if (!members.contains(member.key()))
                    return fail(itemName + ' ' + member.key(), "is unknown");
            if (!readItem(itemName, item))
                return false;
            if (ids.contains(id))
                return fail(itemName, "is there twice");
            ids.insert(id);
        }
        return true;
    }

    bool readId(const QString& name, const QJsonObject& item, std::string& id)
    {
        return readLine(name + " id", item["id"], id) && (!id.empty() || fail(name + " id", "is empty"));
    }

    std::string mError;
};

} // namespace

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
