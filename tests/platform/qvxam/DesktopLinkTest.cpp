#include "DesktopLink.h"

#include <gtest/gtest.h>

using namespace std::string_literals;

namespace {

TEST(DesktopLink, RefusesWhatIsNoLinkOrReachesFilesAndScripts)
{
    const std::string refused[] = {
        "", ":", "home", "/etc/passwd", "/etc/passwd:x", "./a:b", "../a:b", "-x:y", "--help:", "-", "1x:y",
        "a b:c", "a_b:c", "\xc3\xa4:x", "http\0://h"s, "%66ile:///x", "\"http://h\"",
        // openers and browsers strip leading blanks and line feeds before they look at the scheme
        " javascript:x", "\tfile:///x", "\nfile:///x", "\0file:///x"s, "\x01javascript:x", "java\nscript:x",
        "java\tscript:x", " http://h", "file:///etc/passwd", "FILE:/x", "File:x", "javascript:alert(1)",
        "JavaScript:x", "data:text/html,x", "DATA:x"};
    for (const std::string& link : refused)
        EXPECT_EQ(DesktopLink::checked(link), "") << testing::PrintToString(link);
}

TEST(DesktopLink, EscapesWhatALinkCannotHave)
{
    const struct
    {
        std::string link;
        std::string checked;
    } cases[] = {
        {"http://host:80/a-b_c.d~e/?q=1&r=$(x);s='t'#f", "http://host:80/a-b_c.d~e/?q=1&r=$(x);s='t'#f"},
        {"http://[::1]/%25%2525%zz%", "http://[::1]/%25%2525%zz%"},
        {"HTTP://h/ \"<>\\^`{|}", "HTTP://h/%20%22%3C%3E%5C%5E%60%7B%7C%7D"},
        {"x:\0\n\r\t\x1b\x7f"s, "x:%00%0A%0D%09%1B%7F"},
        {"x:\xc3\xa4\xff", "x:%C3%A4%FF"},
        {"svn+ssh.2-x:y", "svn+ssh.2-x:y"},
    };
    for (const auto& [link, checked] : cases)
        EXPECT_EQ(DesktopLink::checked(link), checked) << testing::PrintToString(link);
}

TEST(DesktopLink, NoValueBringsAHeaderOfItsOwn)
{
    const struct
    {
        std::string to, cc, bcc, subject, body;
        std::string link;
    } mails[] = {
        {"", "", "", "", "", "mailto:"},
        {"a@x.org,b+c@y.org", "d@z", "e", "Hi there", "l1\nl2\r\n\tl3",
         "mailto:a@x.org,b+c@y.org?cc=d@z&bcc=e&subject=Hi%20there&body=l1%0Al2%0D%0A%09l3"},
        {"a", "", "", "", "x&attach=/etc/passwd", "mailto:a?body=x%26attach%3D%2Fetc%2Fpasswd"},
        {"a&attach=f", "c?attach=f", "b#f", "s%0Aattach=f", "", // escapes of a decoded value are its text
         "mailto:a%26attach%3Df?cc=c%3Fattach%3Df&bcc=b%23f&subject=s%250Aattach%3Df"},
        {"a%40x.org,b%2Cc%3Fbcc%3Dd", "", "", "", "", "mailto:a@x.org,b%2Cc%3Fbcc%3Dd"},
        {"a%0D%0ABcc:%20b", "c\nBcc: d", "", "s\r\nBcc: e", "\0"s, // only a body has lines
         "mailto:a%20%20Bcc%3A%20b?cc=c%20Bcc%3A%20d&subject=s%20%20Bcc%3A%20e&body=%20"},
        {"50%", "", "", "\xff\xc3\xa4", "", "mailto:50%25?subject=%FF%C3%A4"},
        {",,", "", "", "", "", "mailto:,,"},
    };
    for (const auto& mail : mails)
        EXPECT_EQ(DesktopLink::mail(mail.to, mail.cc, mail.bcc, mail.subject, mail.body), mail.link);

    EXPECT_EQ(DesktopLink::message("+1555", ""), "sms:+1555");
    EXPECT_EQ(DesktopLink::message("1?body=x", "a&b=c#\n\x01"), "sms:1%3Fbody%3Dx?body=a%26b%3Dc%23%0A%20");
    EXPECT_EQ(DesktopLink::call("+12*3#pw"), "tel:+12*3%23pw");
    EXPECT_EQ(DesktopLink::call(""), "tel:");
}

} // namespace
