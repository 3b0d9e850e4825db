#include "Subscriber.h"

#include "Log.h"
#include "Text.h"

#include <algorithm>
#include <set>

namespace {

const Log logger("Modem");

using Content = SubscriberField::Content;

constexpr qsizetype largest(Content content)
{
    return content == Content::Digits ? 15 : content == Content::Number ? 32 : 64;
}

bool isOfContent(char c, Content content)
{
    return content == Content::Name || Text::isDigit(c) ||
           (content == Content::Number && Text::contains("+*# ()-", c));
}

// Why a value is none of this content; null when it is, or is empty.
const char* faultOf(const QString& text, Content content)
{
    if (text.size() > largest(content))
        return "it is too long";
    const std::string bytes = text.toStdString();
    const bool good = std::all_of(bytes.begin(), bytes.end(), [&](char c) { return isOfContent(c, content); });
    return good ? nullptr : "it has other characters than digits";
}

std::string checkedText(const QVariant& value, const SubscriberField& field)
{
    const bool isText = value.typeId() == QMetaType::QString, isList = value.typeId() == QMetaType::QStringList;
    const QString text = isList ? value.toStringList().value(0) : value.toString();
    const char* fault = isText || isList ? faultOf(text, field.content) : "it is no text";
    if (!fault)
        return Text::withoutControls(text.toStdString());
    logOnce(std::string(field.interface) + ' ' + field.property + " is refused: " + fault);
    return {};
}

} // namespace

std::map<std::string, std::string, std::less<>> Subscriber::facts() const
{
    std::map<std::string, std::string, std::less<>> facts;
    if (imsi.empty())
        return facts;
    const bool isHome = registration == Registration::Home;
    const std::string& network = networkName.empty() ? networkCode : networkName;
    facts["imsi"] = imsi;
    facts["msisdn"] = number;
    facts["home_network"] = homeName.empty() && isHome ? network : homeName;
    if (registration != Registration::None) {
        facts["current_network"] = network;
        facts["roaming"] = isHome ? "0" : "1";
        facts["friendly"] = "false"; // no modem knows which networks the operator counts as home
    }
    std::erase_if(facts, [](const auto& fact) { return fact.second.empty(); });
    return facts;
}

void fill(Subscriber& subscriber, std::span<const SubscriberField> fields, const char* interface,
          const QVariantMap& properties)
{
    for (const SubscriberField& field : fields) {
        const auto property = properties.find(QLatin1String(field.property));
        if (property != properties.end() && field.interface == std::string_view(interface))
            subscriber.*field.member += checkedText(*property, field);
    }
}

void logOnce(const std::string& line)
{
    static std::set<std::string> said;
    if (said.insert(line).second)
        logger(3, "%s", line.c_str());
}
