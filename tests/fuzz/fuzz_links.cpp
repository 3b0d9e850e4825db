#include "DesktopLink.h"
#include "NR_URLLauncher.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

// Takes any bytes apart as every kind of link, and holds the promises that the rest of the program and the
// desktop rely on against the outcome.
namespace {

void require(bool promise)
{
    if (!promise)
        std::abort();
}

bool isPrintable(const std::string& link)
{
    return std::all_of(link.begin(), link.end(), [](char c) { return c > ' ' && c < 0x7f; });
}

void checkOutgoing(const std::string& made, const char* scheme, long headers)
{
    require(made.starts_with(scheme) && isPrintable(made));
    require(DesktopLink::checked(made) == made);
    require(std::count(made.begin(), made.end(), '?') <= 1 && made.find('#') == std::string::npos);
    require(std::count(made.begin(), made.end(), '=') <= headers);
}

void takeApart(const std::string& link)
{
    const std::string scheme = NR_URLLauncher::getURLScheme(link);
    require(link.starts_with(scheme) && scheme.find(':') == std::string::npos);
    require(NR_URLLauncher::equalsIgnoreCase(link, link));

    const std::string number = NR_URLLauncher::parseTelNo(link);
    require(number.size() <= 24 && number.find_first_not_of("+0123456789#*ABCDnpw") == std::string::npos);
    require(number.rfind('+') == std::string::npos || number.rfind('+') == 0);
    checkOutgoing(DesktopLink::call(number), "tel:", 0);

    require(NR_URLLauncher::percentDecode(link).size() <= link.size());

    std::string address, text;
    NR_URLLauncher::parseSmsUrl(link, address, text);
    require(address.size() + text.size() <= link.size());
    checkOutgoing(DesktopLink::message(address, text), "sms:", 1);

    const size_t start = std::min(link.find('?'), link.size());
    std::string to = link.substr(0, start), cc, bcc, subject, body;
    NR_URLLauncher::parseHeader(link, start, to, cc, bcc, subject, body);
    require(to.empty() || to == link.substr(0, start));
    checkOutgoing(DesktopLink::mail(to, cc, bcc, subject, body), "mailto:", 4);

    const std::string checked = DesktopLink::checked(link);
    require(checked.empty() || (isPrintable(checked) && !checked.starts_with('-')));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    takeApart(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}
