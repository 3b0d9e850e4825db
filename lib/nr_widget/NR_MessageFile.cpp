#include "NR_MessageFile.h"

#include "PrivateFile.h"

namespace NR_MessageFile {

void write(std::string_view text)
{
    if (!PrivateFile::write(path, text))
        PrivateFile::remove(path);
}

} // namespace NR_MessageFile
