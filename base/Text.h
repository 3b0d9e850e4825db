#pragma once

#include <optional>
#include <string>
#include <string_view>

// Hygiene of texts from outside: letters and controls of ASCII, in every locale the same; percent-coding; what is UTF-8
// and what is a number. All strings are sized: a zero byte is a byte like any other.
namespace Text {

constexpr bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

constexpr char lowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

constexpr bool isLetter(char c)
{
    return lowerCase(c) >= 'a' && lowerCase(c) <= 'z';
}

constexpr bool contains(std::string_view set, char c)
{
    return set.find(c) != std::string_view::npos;
}

std::string lowerCase(std::string_view text);
bool equalsIgnoreCase(std::string_view a, std::string_view b);

// The text in one line: blanks in place of its control characters, also of those from U+0080 to U+009F, which a
// terminal obeys, too. Controls in `kept` stay.
std::string withoutControls(std::string_view text, std::string_view kept = {});

// The text with every byte as %XX but letters, digits, "-._~" and what is in `kept`.
std::string percentEncoded(std::string_view text, std::string_view kept = {});

// The value of a hexadecimal digit, -1 for any other character.
constexpr int hexDigitValue(char c)
{
    const char lower = lowerCase(c);
    return isDigit(c) ? c - '0' : lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// The character whose strict UTF-8 begins at `at`, which is moved behind it. Nothing, and `at` left alone, where none
// begins: overlong forms, surrogates and cut sequences are none.
std::optional<char32_t> decode(std::string_view utf8, size_t& at);

bool isUtf8(std::string_view text);

// The text with U+FFFD in place of each byte that is no part of a character.
std::string cleanUtf8(std::string_view text);

// The 32-bit number that the whole of `text` is in decimal digits, with "-" before a negative one.
std::optional<int> integer(std::string_view text);

} // namespace Text
