#pragma once

#include <optional>
#include <string>
#include <string_view>

// Hygiene of texts: what is UTF-8, what is a number. All strings are sized: a zero byte is a byte like any other.
namespace Text {

// The character whose strict UTF-8 begins at `at`, which is moved behind it. Nothing, and `at` left alone, where none
// begins: overlong forms, surrogates and cut sequences are none.
std::optional<char32_t> decode(std::string_view utf8, size_t& at);

bool isUtf8(std::string_view text);

// The text with U+FFFD in place of each byte that is no part of a character.
std::string cleanUtf8(std::string_view text);

// The 32-bit number that the whole of `text` is in decimal digits, with "-" before a negative one.
std::optional<int> integer(std::string_view text);

} // namespace Text
