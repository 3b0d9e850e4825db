#pragma once

#include <QVariantMap>

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>

// What a modem service says of its subscriber and of the network that he is in. What it can't tell is empty.
struct Subscriber
{
    enum class Registration { None, Home, Roaming };

    std::string imsi, number, homeName, networkName, networkCode;
    Registration registration = Registration::None;

    // The facts of the device that follow from it, by name; none without an identity.
    std::map<std::string, std::string, std::less<>> facts() const;
};

// How a member is filled from a service's property.
struct SubscriberField
{
    enum class Content { Digits, Number, Name };

    const char* interface;
    const char* property; // a text, or texts of which the first counts
    std::string Subscriber::*member;
    Content content;
};

// Appends the properties of `interface` to the members that `fields` name. They are texts from outside: one of another
// type, length or content than such a text has is refused with a line in the log, and counts as not told.
void fill(Subscriber& subscriber, std::span<const SubscriberField> fields, const char* interface,
          const QVariantMap& properties);

// Writes a line to the log, once: what a service does ten thousand times a second must fill no disk. What the line says
// must not come from outside, so that there are only so many different ones.
void logOnce(const std::string& line);

// A property, or an empty value where there is none; one of another type is refused with a line in the log, too.
template <typename Type>
Type typed(const QVariantMap& properties, const char* name)
{
    const QVariant value = properties.value(QLatin1String(name));
    if (!value.isValid() || value.metaType() == QMetaType::fromType<Type>())
        return value.value<Type>();
    logOnce(std::string(name) + " is refused: it is of another type");
    return {};
}
