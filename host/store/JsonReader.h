#pragma once

#include "SettingValue.h"

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <string>

// What the readers of our JSON files share. The first fault ends the reading and is kept in words, which begin with
// its place: line and column of a syntax error, or the name of a wrong value. Every read function returns false on a
// fault and may leave half of its output written.
class JsonReader
{
public:
    using ReadSection = std::function<bool(const QJsonValue& section)>;
    using ReadItem = std::function<bool(const QString& name, const QJsonObject& item)>;

    const std::string& error() const { return mError; }

protected:
    // Reads an object that holds nothing but these sections, any of which may be missing. `kind` is what messages
    // call the document.
    bool readDocument(const QByteArray& json, const char* kind, const std::map<QString, ReadSection>& sections);

    // An object's members, in no order.
    bool readMembers(const QString& name, const QJsonValue& json,
                     const std::function<bool(const QString& name, const QJsonValue& value)>& readMember);
    // A list of objects with the members `members`, whose texts called "id" differ. `readItem` gets the item's name
    // for messages and the item.
    bool readItems(const QString& name, const QStringList& members, const QJsonValue& json,
                   const ReadItem& readItem);

    // An integer of 32 bits, true or false, or a line of text.
    bool readValue(const QString& name, const QJsonValue& json, SettingValue& value);
    // A text without line feeds: each shows in one line, or stands in a list with one line for each.
    bool readLine(const QString& name, const QJsonValue& json, std::string& line);
    // The same, and not empty.
    bool readId(const QString& name, const QJsonObject& item, std::string& id);

    // Keeps the fault and returns false.
    bool fail(const QString& where, const QString& what);

private:
    std::string mError;
};
