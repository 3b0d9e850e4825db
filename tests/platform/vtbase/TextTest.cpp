#include "UTF_8Util.h"
#include "vtString.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace std::string_literals;

TEST(Text, Utf8IsDecodedStrictlyAndEncodedBack)
{
    const struct
    {
        std::string utf8;
        vtTypes::String text;
    } good[] = {
        {"", U""},
        {"a\0b"s, U"a\0b"s},
        {"\x7f\xc2\x80\xdf\xbf", U"\x7f\x80\x7ff"},
        {"\xe0\xa0\x80\xed\x9f\xbf\xee\x80\x80\xef\xbf\xbf", U"\x800\xd7ff\xe000\xffff"},
        {"\xf0\x90\x80\x80\xf4\x8f\xbf\xbf", U"\x10000\x10ffff"},
    };
    for (const auto& [utf8, text] : good) {
        vtTypes::String decoded;
        EXPECT_TRUE(vtStringFromUtf8(utf8, decoded)) << utf8;
        EXPECT_EQ(decoded, text);
        std::string encoded;
        EXPECT_TRUE(vtStringEncodeUtf8(text, encoded));
        EXPECT_EQ(encoded, utf8);
    }

    const std::string bad[] = {
        "\x80",             // no lead
        "\xc1\xbf",         // overlong
        "\xe0\x9f\xbf",     // overlong
        "\xf0\x8f\xbf\xbf", // overlong
        "\xed\xa0\x80",     // a surrogate
        "\xf4\x90\x80\x80", // above the last character
        "\xff",
        "\xe2\x82",  // cut short by the end
        "\xe2\x82 ", // cut short by another character
    };
    for (const std::string& utf8 : bad) {
        vtTypes::String text = U"as it was";
        EXPECT_FALSE(vtStringFromUtf8(utf8, text)) << QByteArray::fromStdString(utf8).toHex().constData();
        EXPECT_EQ(text, U"as it was");
    }

    std::string utf8 = "as it was";
    EXPECT_FALSE(vtStringEncodeUtf8({0xd800}, utf8));
    EXPECT_FALSE(vtStringEncodeUtf8({0x110000}, utf8));
    EXPECT_EQ(utf8, "as it was");
}

TEST(Text, QtGetsTheLowSixteenBitsOfEachCharacter)
{
    const QString text = vtStringToQString(U"a\0\x1F600"s);
    EXPECT_EQ(text, QString::fromUtf16(u"a\0\xF600", 3));
    EXPECT_EQ(vtStringToUtf8(U"a\0\x1F600"s), "a\0\xEF\x98\x80"s);
    // What is left may be half of a pair, or two halves that make one.
    EXPECT_EQ(vtStringToQString(U"\x1D83D").at(0), QChar(0xD83D));
    EXPECT_EQ(vtStringToUtf8(U"\x1D83D\x1DE00"), "\xF0\x9F\x98\x80");
}

TEST(Text, LinesAreReadOneByOne)
{
    std::istringstream stream("first\n\nbad \xff line\nlast");
    UTF_8Util::LineReader reader(stream);
    const struct
    {
        vtTypes::String line;
        bool error;
    } expected[] = {{U"first", false}, {U"", false}, {U"", true}, {U"last", false}, {U"", false}};
    for (const auto& [line, error] : expected) {
        bool failed = !error;
        EXPECT_EQ(reader.readLine(failed), line);
        EXPECT_EQ(failed, error);
    }
}
