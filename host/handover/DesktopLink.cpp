#include "DesktopLink.h"

#include "Text.h"

#include <QByteArray>

#include <algorithm>
#include <iterator>

namespace {

constexpr std::string_view refusedSchemes[] = {"file", "javascript", "data"};

// What a link may have besides letters, digits and "-._~".
constexpr std::string_view linkPunctuation = "%:/?#[]@!$&'()*+,;=";

std::string decoded(std::string_view text)
{
    return QByteArray::fromPercentEncoding(QByteArray(text.data(), qsizetype(text.size()))).toStdString();
}

// A mail program may copy a value into its header as it is: a line feed there would begin another header.
std::string header(std::string_view text, std::string_view kept = {})
{
    return Text::percentEncoded(Text::withoutControls(text), kept);
}

std::string body(std::string_view text)
{
    return Text::percentEncoded(Text::withoutControls(text, "\n\r\t"));
}

// A comma that is encoded belongs to an address, one that is not separates two.
std::string addressesOfLink(std::string_view text)
{
    std::string result;
    for (;;) {
        const size_t comma = text.find(',');
        result += header(decoded(text.substr(0, comma)), "@+");
        if (comma == std::string_view::npos)
            return result;
        result += ',';
        text.remove_prefix(comma + 1);
    }
}

bool isScheme(std::string_view text)
{
    return !text.empty() && Text::isLetter(text.front()) && std::all_of(text.begin(), text.end(), [](char c) {
        return Text::isLetter(c) || Text::isDigit(c) || Text::contains("+-.", c);
    });
}

} // namespace

namespace DesktopLink {

std::string escaped(std::string_view text)
{
    return Text::percentEncoded(text, linkPunctuation);
}

std::string checked(std::string_view link)
{
    const size_t colon = link.find(':');
    if (colon == std::string_view::npos || !isScheme(link.substr(0, colon)))
        return {};
    const std::string scheme = Text::lowerCase(link.substr(0, colon));
    if (std::find(std::begin(refusedSchemes), std::end(refusedSchemes), scheme) != std::end(refusedSchemes))
        return {};
    return escaped(link);
}

std::string mail(std::string_view to, std::string_view cc, std::string_view bcc, std::string_view subject,
                 std::string_view text)
{
    std::string link = "mailto:" + addressesOfLink(to);
    char separator = '?';
    const auto add = [&](const char* name, const std::string& value) {
        if (value.empty())
            return;
        link += separator;
        link += name;
        link += value;
        separator = '&';
    };
    add("cc=", header(cc, "@,+"));
    add("bcc=", header(bcc, "@,+"));
    add("subject=", header(subject));
    add("body=", ::body(text));
    return link;
}

std::string message(std::string_view address, std::string_view text)
{
    const std::string link = "sms:" + addressesOfLink(address);
    return text.empty() ? link : link + "?body=" + body(text);
}

std::string call(std::string_view number)
{
    return "tel:" + header(number, "+*");
}

} // namespace DesktopLink
