#include "Output.h"

#include <QJsonDocument>

#include <cstdio>

namespace {

std::string toText(const Output::Row& row)
{
    std::string text;
    const char* separator = "";
    for (const Output::Column& column : row) {
        if (column.forMachines)
            continue;
        text += separator;
        text += Output::escaped(column.text.value_or(column.value.toVariant().toString().toStdString()));
        separator = "\t";
    }
    return text;
}

QJsonObject toObject(const Output::Row& row)
{
    QJsonObject object;
    for (const Output::Column& column : row)
        object[QLatin1String(column.name)] = column.value;
    return object;
}

std::string toText(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

void write(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stdout);
}

QString escapedCharacter(QChar character)
{
    switch (character.unicode()) {
    case '\\':
        return QStringLiteral("\\\\");
    case '\t':
        return QStringLiteral("\\t");
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    default:
        if (character.category() != QChar::Other_Control)
            return character;
        return QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
    }
}

} // namespace

namespace Output {

QJsonValue toJson(const std::string& text)
{
    return QString::fromStdString(text);
}

std::string escaped(const std::string& text)
{
    QString result;
    for (QChar character : QString::fromStdString(text))
        result += escapedCharacter(character);
    return result.toStdString();
}

void line(const std::string& text)
{
    write(text + '\n');
    std::fflush(stdout);
}

void line(const QJsonObject& object)
{
    line(toText(object));
}

Table::Table(bool json) : mJson(json)
{
    if (mJson)
        write("[");
}

Table::~Table()
{
    if (mJson)
        write(mEmpty ? "]\n" : "\n]\n");
}

void Table::add(const Row& row)
{
    if (mJson)
        write((mEmpty ? "\n" : ",\n") + toText(toObject(row)));
    else
        write(toText(row) + '\n');
    mEmpty = false;
}

} // namespace Output
