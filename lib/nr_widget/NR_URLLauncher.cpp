#include "NR_URLLauncher.h"

#include "AM_ActionData.h"
#include "AM_LauncherClient.h"
#include "Log.h"
#include "NR_EngineUtils.h"
#include "NR_MessageFile.h"
#include "SDManager.h"
#include "Text.h"

#include <algorithm>
#include <initializer_list>

namespace {

const Log logger("../../lib/nr_widget/NR_URLLauncher");

constexpr std::string_view schemeSMSTOX = "smstox";
constexpr std::string_view schemeSMSTO = "smsto";
constexpr std::string_view schemeMMSTO = "mmsto";
constexpr std::string_view schemeMAILTO = "mailto";
constexpr std::string_view schemeTEL = "tel";
constexpr std::string_view schemeVTEL = "vtel";
constexpr std::string_view schemeMIDLET = "midlet";
constexpr std::string_view schemeRTSP = "rtsp";
constexpr std::string_view schemeICAL = "ical";
constexpr std::string_view schemeVCAL = "vcal";
constexpr std::string_view schemeHTTP = "http";
constexpr std::string_view schemeHTTPS = "https";
constexpr std::string_view keywordAddressBook = "addressbook";
constexpr std::string_view keywordMessaging = "messaging";

constexpr std::string_view appAddressBook = "2f7e9a31-c605-4b1d-8e2a-94d0f6b3c718";
constexpr std::string_view appMessaging = "d4806b5e-17a9-4c3f-b25d-7ea1903f6c82";
constexpr std::string_view appCalendar = "5c2d7a10-8e4b-4f3a-9b61-0d7e2c4a9f35";
constexpr std::string_view appAlarm = "9b14e0c7-3a52-4d8e-a7f0-61c3b58d2e49";

bool isOneOf(std::string_view scheme, std::initializer_list<std::string_view> words)
{
    return std::any_of(words.begin(), words.end(),
                       [&](std::string_view word) { return NR_URLLauncher::equalsIgnoreCase(scheme, word); });
}

// All after the first ":"; "" when there is none.
std::string afterScheme(const std::string& link)
{
    const size_t colon = link.find(':');
    return colon == std::string::npos ? std::string() : link.substr(colon + 1);
}

void startApplication(std::string_view appId, std::string_view argument = {})
{
    AM_LauncherClient::launchAppObject(appId, argument, 0, true, true);
}

// How the launchers of messages differ.
struct MessageKind
{
    const char* launcher; // in the log
    bool decodes;         // passes on the text decoded
    bool logsSteps;
    const char* compose;
};

constexpr MessageKind smsto = {"launchSMSTO", true, true, "yes"};
constexpr MessageKind smstox = {"launchSMSTOX", false, false, "no"};
constexpr MessageKind mmsto = {"launchMMSTO", false, false, "yes"};

// Asks for a message to be composed, its text left in the message file.
void composeMessage(const std::string& link, const MessageKind& kind)
{
    if (kind.logsSteps)
        logger(8, "Launch SMSTO");
    std::string address;
    std::string text;
    NR_URLLauncher::parseSmsUrl(link, address, text);
    if (kind.decodes)
        text = NR_URLLauncher::percentDecode(text);
    logger(7, "%s: address = %s\n", kind.launcher, Text::withoutControls(address).c_str());
    logger(7, "%s: text = %s\n", kind.launcher, Text::withoutControls(text).c_str());
    AM_ActionData request;
    request.setAction("SendMMSSMS");
    request.setValue("ContactList", address);
    request.setValue("Compose", kind.compose);
    request.setValue("AutoDelete", "yes");
    request.setValue("TextFileAsAttachment", "no");
    if (!address.empty() && !text.empty()) {
        NR_MessageFile::write(text);
        request.setValue("Files", NR_MessageFile::path);
    }
    if (kind.logsSteps)
        logger(8, "about to invoke");
    request.invoke();
}

} // namespace

bool NR_URLLauncher::launch(const vtTypes::ID& id)
{
    const std::string& link = id.text();
    logger(8, "Launch with URL: %s", link.c_str());
    if (equalsIgnoreCase(link, keywordAddressBook)) {
        launchAddressBook();
        return false;
    }
    if (equalsIgnoreCase(link, keywordMessaging)) {
        launchMessaging();
        return false;
    }
    const std::string scheme = getURLScheme(link);
    if (scheme.empty()) {
        logger(8, "Bad scheme!");
        return false;
    }
    if (isOneOf(scheme, {schemeSMSTOX, schemeSMSTO, schemeMMSTO, schemeMAILTO}))
        return launchMessage(link);
    if (equalsIgnoreCase(scheme, schemeTEL))
        return launchTEL(link);
    if (equalsIgnoreCase(scheme, schemeVTEL))
        return launchVTEL(link);
    if (isOneOf(scheme, {schemeMIDLET, schemeRTSP, schemeICAL, schemeVCAL}))
        return launchApp(link);
    return launchBROWSER(link);
}

bool NR_URLLauncher::launchMessage(const std::string& link)
{
    const std::string scheme = getURLScheme(link);
    if (equalsIgnoreCase(scheme, schemeSMSTOX))
        launchSMSTOX(link);
    else if (equalsIgnoreCase(scheme, schemeSMSTO))
        launchSMSTO(link);
    else if (equalsIgnoreCase(scheme, schemeMMSTO))
        launchMMSTO(link);
    else if (equalsIgnoreCase(scheme, schemeMAILTO))
        launchMAILTO(link);
    return true;
}

bool NR_URLLauncher::launchApp(const std::string& link)
{
    const std::string scheme = getURLScheme(link);
    if (equalsIgnoreCase(scheme, schemeMIDLET))
        launchMIDLET(link);
    else if (equalsIgnoreCase(scheme, schemeRTSP))
        launchRTSP(link);
    else if (equalsIgnoreCase(scheme, schemeICAL))
        startApplication(appCalendar, "--date=" + afterScheme(link));
    else if (equalsIgnoreCase(scheme, schemeVCAL))
        launchALARM();
    return false;
}

void NR_URLLauncher::launchAddressBook()
{
    logger(8, "launchAddressBook:");
    startApplication(appAddressBook);
}

void NR_URLLauncher::launchMessaging()
{
    logger(8, "launchMessaging:");
    startApplication(appMessaging);
}

void NR_URLLauncher::launchSMSTO(const std::string& link)
{
    composeMessage(link, smsto);
}

void NR_URLLauncher::launchSMSTOX(const std::string& link)
{
    composeMessage(link, smstox);
}

void NR_URLLauncher::launchMMSTO(const std::string& link)
{
    composeMessage(link, mmsto);
}

void NR_URLLauncher::launchMAILTO(const std::string& link)
{
    std::string to = afterScheme(link);
    std::string cc;
    std::string bcc;
    std::string subject;
    std::string body;
    const size_t question = link.find('?');
    if (question != std::string::npos) {
        to.resize(std::min(to.size(), to.find('?')));
        parseHeader(link, question, to, cc, bcc, subject, body);
    }
    logger(8, "launchMAILTO: to = %s\n", to.c_str());
    logger(8, "launchMAILTO: cc = %s\n", cc.c_str());
    logger(8, "launchMAILTO: bcc = %s\n", bcc.c_str());
    logger(8, "launchMAILTO: subject = %s\n", subject.c_str());
    logger(8, "launchMAILTO: body = %s\n", body.c_str());
    AM_ActionData request;
    request.setAction("SendEmail");
    request.setValue("To", to);
    request.setValue("Cc", cc);
    request.setValue("Bcc", bcc);
    request.setValue("Subject", subject);
    request.setValue("Body", body);
    request.invoke();
}

bool NR_URLLauncher::launchTEL(const std::string& link)
{
    const std::string number = parseTelNo(afterScheme(link));
    logger(8, "launchTEL: telNo = %s\n", number.c_str());
    SDManager(0).performAction("PHONE_CALL", SDData{"text/x-phoneNumber", number, "", false, 0});
    return true;
}

// There is nothing on the platform yet that could place a video call.
bool NR_URLLauncher::launchVTEL(const std::string& link)
{
    const std::string number = parseTelNo(afterScheme(link));
    logger(8, "launchVTEL: telNo = %s\n", number.c_str());
    return false;
}

void NR_URLLauncher::launchMIDLET(const std::string& link)
{
    const std::string command = percentDecode(afterScheme(link));
    logger(8, "launchMIDLET: command = %s\n", command.c_str());
    startApplication(command);
}

void NR_URLLauncher::launchRTSP(const std::string& link)
{
    logger(8, "launchRTSP: url = %s\n", link.c_str());
    AM_LauncherClient::openDocument(link, {}, true);
}

void NR_URLLauncher::launchALARM()
{
    logger(8, "launchALARM:");
    startApplication(appAlarm);
}

bool NR_URLLauncher::launchBROWSER(const std::string& link)
{
    std::string url = link;
    if (isOneOf(getURLScheme(link), {schemeHTTP, schemeHTTPS})) {
        NR_EngineUtils::replacePatternsInURL(url);
        logger(8, "URL after MACRO substitution: %s", url.c_str());
    }
    logger(8, "launchBROWSER:");
    return AM_LauncherClient::loadURL(url) == 0;
}
