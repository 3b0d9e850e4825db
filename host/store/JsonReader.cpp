#include "JsonReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <cmath>
#include <limits>
#include <optional>
#include <vector>

namespace {

QString placeOf(const QByteArray& json, qsizetype offset)
{
    const QByteArray before = json.left(offset);
    const qsizetype lineStart = before.lastIndexOf('\n') + 1;
    return QStringLiteral("line %1, column %2")
        .arg(before.count('\n') + 1)
        .arg(QString::fromUtf8(before.mid(lineStart)).size() + 1);
}

// The end of the text that begins at `begin`, behind its closing quote.
qsizetype endOfText(const QByteArray& json, qsizetype begin)
{
    qsizetype end = begin + 1;
    while (json[end] != '"')
        end += json[end] == '\\' ? 2 : 1;
    return end + 1;
}

QString textOf(const QByteArray& quoted)
{
    return QJsonDocument::fromJson('[' + quoted + ']').array().first().toString();
}

struct RepeatedKey
{
    QString key;
    qsizetype offset;
};

// Qt keeps only the last of the members that have the same key. The document must have been parsed without a fault.
std::optional<RepeatedKey> findRepeatedKey(const QByteArray& json)
{
    std::vector<QSet<QString>> levels; // a list has no keys
    for (qsizetype at = 0; at < json.size(); ++at) {
        const char c = json[at];
        if (c == '{' || c == '[')
            levels.emplace_back();
        else if (c == '}' || c == ']')
            levels.pop_back();
        if (c != '"')
            continue;
        const qsizetype begin = at;
        const qsizetype end = endOfText(json, begin);
        at = end - 1;
        qsizetype next = end;
        while (next < json.size() && std::isspace(static_cast<unsigned char>(json[next])))
            ++next;
        if (next == json.size() || json[next] != ':')
            continue;
        const QString key = textOf(json.mid(begin, end - begin));
        if (levels.back().contains(key))
            return RepeatedKey{key, begin};
        levels.back().insert(key);
    }
    return std::nullopt;
}

bool isInteger(double value)
{
    using Limits = std::numeric_limits<int>;
    return value == std::trunc(value) && value >= Limits::min() && value <= Limits::max();
}

} // namespace

bool JsonReader::readDocument(const QByteArray& json, const char* kind,
                              const std::map<QString, ReadSection>& sections)
{
    QJsonParseError fault;
    const QJsonDocument document = QJsonDocument::fromJson(json, &fault);
    if (fault.error != QJsonParseError::NoError)
        return fail(placeOf(json, fault.offset), fault.errorString());
    if (const auto repeated = findRepeatedKey(json))
        return fail(placeOf(json, repeated->offset), '"' + repeated->key + "\" is there twice");
    if (!document.isObject())
        return fail(QStringLiteral("the %1").arg(kind), "is not an object");
    const QJsonObject object = document.object();
    for (auto section = object.begin(); section != object.end(); ++section) {
        const auto reader = sections.find(section.key());
        if (reader == sections.end())
            return fail(section.key(), QStringLiteral("is no section of a %1").arg(kind));
        if (!reader->second(section.value()))
            return false;
    }
    return true;
}

bool JsonReader::readMembers(const QString& name, const QJsonValue& json,
                             const std::function<bool(const QString&, const QJsonValue&)>& readMember)
{
    if (!json.isObject())
        return fail(name, "is not an object");
    const QJsonObject object = json.toObject();
    for (auto member = object.begin(); member != object.end(); ++member)
        if (!readMember(member.key(), member.value()))
            return false;
    return true;
}

bool JsonReader::readItems(const QString& name, const QStringList& members, const QJsonValue& json,
                           const ReadItem& readItem)
{
    if (!json.isArray())
        return fail(name, "is not a list");
    QSet<QString> ids;
    int number = 0;
    for (const QJsonValue value : json.toArray()) {
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

bool JsonReader::readValue(const QString& name, const QJsonValue& json, SettingValue& value)
{
    if (json.isBool()) {
        value = json.toBool();
        return true;
    }
    if (json.isDouble()) {
        value = json.toInt();
        return isInteger(json.toDouble()) || fail(name, "is no 32-bit integer");
    }
    if (json.isArray())
        return fail(name, "is a list; a list of names is one text with commas between them");
    if (!json.isString())
        return fail(name, "is no integer, no true or false, and no text");
    return readLine(name, json, value.emplace<std::string>());
}

bool JsonReader::readLine(const QString& name, const QJsonValue& json, std::string& line)
{
    if (!json.isString())
        return fail(name, "is no text");
    const QString text = json.toString();
    if (!text.isValidUtf16())
        return fail(name, "holds half of a surrogate pair");
    if (text.contains(QChar(0)))
        return fail(name, "holds a character 0");
    if (text.contains('\n'))
        return fail(name, "has more than one line");
    line = text.toStdString();
    return true;
}

bool JsonReader::readId(const QString& name, const QJsonObject& item, std::string& id)
{
    return readLine(name + " id", item["id"], id) && (!id.empty() || fail(name + " id", "is empty"));
}

bool JsonReader::fail(const QString& where, const QString& what)
{
    mError = (where + ": " + what).toStdString();
    return false;
}
