#pragma once

#include "vtTypes.h"

#include <QString>

// Conversions of the core's wide strings. All are sized: a zero character is a character like any other.

// Each 32-bit character becomes the 16-bit character made of its low 16 bits, so a character above U+FFFF is
// cut, and what is left may be half of a surrogate pair.
QString vtStringToQString(const vtTypes::String& text);

// The UTF-8 text that such a QString gives.
std::string vtStringToUtf8(const vtTypes::String& text);

// Strict decoding: overlong forms, surrogates and truncated sequences are errors. False leaves `text` alone.
bool vtStringFromUtf8(const std::string& utf8, vtTypes::String& text);
