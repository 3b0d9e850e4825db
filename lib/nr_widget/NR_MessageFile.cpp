#include "NR_MessageFile.h"

#include "PrivateFile.h"

namespace NR_MessageFile {

void write(std::string_view text)
{
    PrivateFile::write(path, text);
}

} // namespace NR_MessageFile
