#include "DesktopLink.h"

#include <QByteArray>

#include <algorithm>
#include <iterator>

namespace {

constexpr std::string_view refusedSchemes[] = {"file", "javascript", "data"};

// What a link may have besides letters, digits and "-._~".
constexpr std::string_view linkPunctuation = "%:/?#[]@!$&'()*+,;=";

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool contains(std::string_view set, char c)
{
    return set.find(c) != std::string_view::npos;
}

std::string encoded(std::string_view text, std::string_view kept)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string result;
    for (const char c : text) {
        if (isLetter(c) || isDigit(c) || contains("-._~", c) || contains(kept, c)) {
            result += c;
        } else {
            const auto byte = static_cast<unsigned char>(c);
            result += {'%', digits[byte >> 4], digits[byte & 15]};
        }
    }
    return result;
}

std::string decoded(std::string_view text)
{
    return QByteArray::fromPercentEncoding(QByteArray(text.data(), qsizetype(text.size()))).toStdString();
}

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
}

// A mail program may copy a value into its header as it is: a line feed there would begin another header.
std::string singleLine(std::string text)
{
    std::replace_if(text.begin(), text.end(), isControl, ' ');
    return text;
}

std::string plainText(std::string text)
{
    std::replace_if(
        text.begin(), text.end(), [](char c) { return isControl(c) && c != '\n' && c != '\r' && c != '\t'; },
        ' ');
    return text;
}

std::string plainAddresses(std::string_view text)
{
    return encoded(singleLine(std::string(text)), "@,+");
}

// A comma that is encoded belongs to an address, one that is not separates two.
std::string addressesOfLink(std::string_view text)
{
    std::string result;
    for (;;) {
        const size_t comma = text.find(',');
        result += encoded(singleLine(decoded(text.substr(0, comma))), "@+");
        if (comma == std::string_view::npos)
            return result;
        result += ',';
        text.remove_prefix(comma + 1);
    }
}

std::string lowerCase(std::string_view text)
{
    return QByteArray(text.data(), qsizetype(text.size())).toLower().toStdString();
}

bool isScheme(std::string_view text)
{
    return !text.empty() && isLetter(text.front()) && std::all_of(text.begin(), text.end(), [](char c) {
        return isLetter(c) || isDigit(c) || contains("+-.", c);
    });
}

} // namespace

namespace DesktopLink {

std::string escaped(std::string_view text)
{
    return encoded(text, linkPunctuation);
}

std::string checked(std::string_view link)
{
    const size_t colon = link.find(':');
    if (colon == std::string_view::npos || !isScheme(link.substr(0, colon)))
        return {};
    const std::string scheme = lowerCase(link.substr(0, colon));
    if (std::find(std::begin(refusedSchemes), std::end(refusedSchemes), scheme) != std::end(refusedSchemes))
        return {};
    return escaped(link);
}

std::string mail(std::string_view to, std::string_view cc, std::string_view bcc, std::string_view subject,
                 std::string_view body)
{
    std::string link = "mailto:" + addressesOfLink(to);
    char separator = '?';
    const auto add = [&](const char* header, const std::string& value) {
        if (value.empty())
            return;
        link += separator;
        link += header;
        link += value;
        separator = '&';
    };
    add("cc=", plainAddresses(cc));
    add("bcc=", plainAddresses(bcc));
    add("subject=", encoded(singleLine(std::string(subject)), {}));
    add("body=", encoded(plainText(std::string(body)), {}));
    return link;
}

std::string message(std::string_view address, std::string_view text)
{
    const std::string link = "sms:" + addressesOfLink(address);
    return text.empty() ? link : link + "?body=" + encoded(plainText(std::string(text)), {});
}

std::string call(std::string_view number)
{
    return "tel:" + encoded(singleLine(std::string(number)), "+*");
}

} // namespace DesktopLink
