#pragma once

#include "vtTypes.h"

#include <QString>

#include <string>
#include <string_view>

// Conversions of the core's wide strings. All are sized: a zero character is a character like any other.

// Each 32-bit character becomes the 16-bit character made of its low 16 bits, so a character above U+FFFF is
// cut, and what is left may be half of a surrogate pair.
QString vtStringToQString(const vtTypes::String& text);

// The UTF-8 text that such a QString gives.
std::string vtStringToUtf8(const vtTypes::String& text);

// The exact UTF-8 of the text, nothing cut. False, leaving `utf8` alone, when `text` holds a surrogate or a
// number above U+10FFFF, which have none.
bool vtStringEncodeUtf8(const vtTypes::String& text, std::string& utf8);

// Strict decoding: overlong forms, surrogates and truncated sequences are errors. False leaves `text` alone.
bool vtStringFromUtf8(std::string_view utf8, vtTypes::String& text);
