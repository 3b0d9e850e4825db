#pragma once

#include "vtTypes.h"

#include <istream>

namespace UTF_8Util {

// Reads UTF-8 text line by line. The stream is not owned and must outlive the reader.
class LineReader
{
public:
    explicit LineReader(std::istream& stream) : mStream(stream) {}

    // The next line without its line feed, or the empty string at the end of the stream. `error` becomes
    // true, and the result empty, when the line is not valid UTF-8; otherwise `error` becomes false.
    vtTypes::String readLine(bool& error);

private:
    std::istream& mStream;
};

} // namespace UTF_8Util
