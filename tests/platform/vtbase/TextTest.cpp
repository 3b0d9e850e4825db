#include "vtString.h"

#include <gtest/gtest.h>

using namespace std::string_literals;

TEST(Text, Utf8IsDecodedStrictlyAndEncodedBack)
{
    const std::pair<std::string, vtTypes::String> good[] = {
        {"a\0b"s, U"a\0b"s},
        {"\x7f\xc2\x80\xdf\xbf", U"\x7f\x80\x7ff"},
        {"\xe0\xa0\x80\xed\x9f\xbf\xee\x80\x80\xef\xbf\xbf", U"\x800\xd7ff\xe000\xffff"},
        {"\xf0\x90\x80\x80\xf4\x8f\xbf\xbf", U"\x10000\x10ffff"},
    };
    for (const auto& [utf8, text] : good) {
        vtTypes::String decoded;
        std::string encoded;
        EXPECT_TRUE(vtStringFromUtf8(utf8, decoded) && decoded == text) << utf8;
        EXPECT_TRUE(vtStringEncodeUtf8(text, encoded) && encoded == utf8) << utf8;
    }

    const std::string bad[] = {
        "\xc1\xbf",         // overlong
        "\xe0\x9f\xbf",     // overlong
        "\xf0\x8f\xbf\xbf", // overlong
        "\xed\xa0\x80",     // a surrogate
        "\xf4\x90\x80\x80", // above the last character
        "\xff",             // no lead
        "\xe2\x82",         // cut short by the end
        "\xe2\x82 ",        // cut short by another character
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
