#pragma once

#include "vtTypes.h"

#include <cstddef>
#include <string>
#include <string_view>

// Turns a link into the start of the phone application that handles it. Links and their parts are byte strings
// that may hold anything; nothing is kept between two calls, and nothing here reports an error: a part of a
// link that is of no use becomes an empty string.
class NR_URLLauncher
{
public:
    // Starts what handles `link`. What comes back depends on the kind of link alone: true for a message, a mail
    // or a call, false for the other applications and for a link without a scheme. For the browser it is true
    // when the browser took the link.
    static bool launch(const vtTypes::ID& link);

    // The same for the schemes of messages and mail, always true, and for those of the other applications,
    // always false. A link of another scheme starts nothing.
    static bool launchMessage(const std::string& link);
    static bool launchApp(const std::string& link);

    // --- How a link is taken apart: NR_URLParsing.cpp ---

    // The text before the first ":", its case kept, or "" when there is no ":".
    static std::string getURLScheme(const std::string& link);

    // Equal but for the case of ASCII letters, whatever the locale says.
    static bool equalsIgnoreCase(std::string_view a, std::string_view b);

    // A number as it is dialled: separators dropped, pauses in lower case, escapes of "+", "*" and "#"
    // resolved. "" when it is invalid or longer than 24 characters.
    static std::string parseTelNo(const std::string& number);

    // `text` with each "%" and the two characters after it as one byte. A "%" with fewer than two characters
    // after it stays.
    static std::string percentDecode(const std::string& text);

    // 0 to 15, or -1 when `c` is no hexadecimal digit.
    static int hexDigitValue(char c);

    // Address and text, still encoded, of an SMS or MMS link. The address is normalised like a number only when
    // the link has a "?".
    static void parseSmsUrl(const std::string& link, std::string& address, std::string& text);

    // The headers of a mail link from `start`, the position of its "?", on. An output stays as it is unless the
    // link has that header; `to` is never taken from one. A header without a name empties all five.
    static void parseHeader(const std::string& link, size_t start, std::string& to, std::string& cc,
                            std::string& bcc, std::string& subject, std::string& body);

private:
    static void launchAddressBook();
    static void launchMessaging();
    static void launchSMSTO(const std::string& link);
    static void launchSMSTOX(const std::string& link);
    static void launchMMSTO(const std::string& link);
    static void launchMAILTO(const std::string& link);
    static bool launchTEL(const std::string& link);
    static bool launchVTEL(const std::string& link);
    static void launchMIDLET(const std::string& link);
    static void launchRTSP(const std::string& link);
    static void launchALARM();
    static bool launchBROWSER(const std::string& link);
};
