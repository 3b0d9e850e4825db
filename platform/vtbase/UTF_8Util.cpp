#include "UTF_8Util.h"

#include "vtString.h"

namespace UTF_8Util {

vtTypes::String LineReader::readLine(bool& error)
{
    std::string line;
    std::getline(mStream, line);
    vtTypes::String text;
    error = !vtStringFromUtf8(line, text);
    return text;
}

} // namespace UTF_8Util
