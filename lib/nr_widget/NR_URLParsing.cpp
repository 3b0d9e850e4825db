#include "Log.h"
#include "NR_URLLauncher.h"
#include "Text.h"

#include <algorithm>
#include <optional>

namespace {

const Log logger("../../lib/nr_widget/NR_URLLauncher");

constexpr std::string_view headerCc = "cc";
constexpr std::string_view headerBcc = "bcc";
constexpr std::string_view headerSubject = "subject";
constexpr std::string_view headerBody = "body";

constexpr size_t longestNumber = 24;

// The character that an escape may bring into a number, or 0. `escape` is what follows the "%", two characters.
char numberEscape(std::string_view escape)
{
    if (escape == "2A" || escape == "2a")
        return '*';
    return escape == "23" ? '#' : '\0';
}

// Walks over the names of a link's headers. Each ends at a "=" and begins after the last "&" before it, where
// there is none after the last "?". Every character is looked at once: a link that is one long row of "=" must
// not cost the square of its length.
class HeaderNames
{
public:
    HeaderNames(std::string_view link, size_t start) : mLink(link), mNext(start) {}

    // Goes to the next name; false when there is none.
    bool next()
    {
        const size_t equals = mLink.find('=', mNext);
        if (equals == mLink.npos)
            return false;
        const std::string_view unseen = mLink.substr(mEnd, equals - mEnd);
        if (const size_t at = unseen.rfind('&'); at != unseen.npos)
            mAfterAmpersand = mEnd + at + 1;
        if (const size_t at = unseen.rfind('?'); at != unseen.npos)
            mAfterQuestion = mEnd + at + 1;
        mEnd = equals;
        mNext = equals + 1;
        return true;
    }

    // Where it ends.
    size_t end() const { return mEnd; }

    std::string_view name() const
    {
        const size_t begin = mAfterAmpersand > 0 ? mAfterAmpersand : mAfterQuestion;
        return mLink.substr(begin, mEnd - begin);
    }

private:
    std::string_view mLink;
    size_t mNext;
    size_t mEnd = 0;
    size_t mAfterAmpersand = 0; // 0: there was none
    size_t mAfterQuestion = 0;
};

} // namespace

std::string NR_URLLauncher::getURLScheme(const std::string& link)
{
    const size_t colon = link.find(':');
    if (colon == std::string::npos)
        return {};
    std::string scheme = link.substr(0, colon);
    logger(8, "NR_URLLauncher.getURLScheme(): Scheme is %s\n", scheme.c_str());
    return scheme;
}

bool NR_URLLauncher::equalsIgnoreCase(std::string_view a, std::string_view b)
{
    return Text::equalsIgnoreCase(a, b);
}

std::string NR_URLLauncher::parseTelNo(const std::string& number)
{
    if (number.empty())
        return {};
    logger(8, "NR_URLLauncher.parseTelNo(): Number is %s\n", number.c_str());

    const std::string_view text = number;
    std::string result;
    size_t i = 0;
    if (text.starts_with('+')) {
        result = "+";
        i = 1;
    } else if (text.starts_with("%2B") || text.starts_with("%2b")) {
        result = "+";
        i = 3;
    }
    while (i < text.size()) {
        const char c = text[i++];
        if (Text::contains("0123456789#*ABCDnpw", c)) {
            result += c;
        } else if (Text::contains("NPW", c)) {
            result += Text::lowerCase(c);
        } else if (c == '%') {
            const std::string_view escape = text.substr(i, 2);
            const char meant = numberEscape(escape);
            if (meant)
                result += meant;
            else
                result.clear(); // what came before is lost, what comes after still counts
            i += escape.starts_with('2') ? 2 : 1;
        } else if (!Text::contains("(),-./", c)) {
            return {};
        }
    }
    return result.size() <= longestNumber ? result : std::string();
}

int NR_URLLauncher::hexDigitValue(char c)
{
    return Text::hexDigitValue(c);
}

std::string NR_URLLauncher::percentDecode(const std::string& text)
{
    std::string result;
    result.reserve(text.size());
    size_t from = 0;
    for (;;) {
        const size_t percent = text.find('%', from);
        if (percent == std::string::npos || text.size() - percent < 3)
            return result.append(text, from);
        result.append(text, from, percent - from);
        const int byte = hexDigitValue(text[percent + 1]) * 16 + hexDigitValue(text[percent + 2]);
        result += static_cast<char>(byte & 0xff);
        from = percent + 3;
    }
}

void NR_URLLauncher::parseSmsUrl(const std::string& link, std::string& address, std::string& text)
{
    static const std::string textPrefix = "text=";

    const size_t colon = std::min(link.find(':'), link.size());
    const size_t question = link.find('?');
    const size_t begin = std::min(colon + 1, link.size());
    text.clear();
    if (question == std::string::npos) {
        address = link.substr(begin);
        return;
    }
    address = question > begin ? parseTelNo(link.substr(begin, question - begin)) : std::string();
    if (link.compare(question + 1, textPrefix.size(), textPrefix) == 0)
        text = link.substr(question + 1 + textPrefix.size());
}

void NR_URLLauncher::parseHeader(const std::string& link, size_t start, std::string& to, std::string& cc,
                                 std::string& bcc, std::string& subject, std::string& body)
{
    struct Header
    {
        std::string_view name;
        std::string& output;
        std::optional<std::string_view> value; // still encoded
    };
    Header headers[] = {
        {headerCc, cc, {}}, {headerBcc, bcc, {}}, {headerSubject, subject, {}}, {headerBody, body, {}}};

    // A value is decoded only when no later header replaces it, so that many cost no more than their length.
    const std::string_view text = link;
    size_t valueEnd = 0;
    for (HeaderNames names(text, start); names.next();) {
        const std::string_view name = names.name();
        logger(8, "NR_URLLauncher.parseHeader(): Header is %.*s\n", static_cast<int>(name.size()), name.data());

        const size_t value = names.end() + 1;
        if (valueEnd < value)
            valueEnd = std::min(text.find('&', value), text.size());
        for (Header& header : headers) {
            if (equalsIgnoreCase(name, header.name))
                header.value = text.substr(value, valueEnd - value);
            else if (name.empty())
                header.value = "";
        }
        if (name.empty())
            to.clear();
    }

    for (const Header& header : headers) {
        if (!header.value)
            continue;
        header.output = percentDecode(std::string(*header.value));
        logger(8, "NR_URLLauncher.parseHeader(): Value is %s\n", header.output.c_str());
    }
}
