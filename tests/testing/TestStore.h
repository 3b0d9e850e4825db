#pragma once

#include <QTemporaryDir>

#include <string>

// A fresh settings store on a temporary file, which the whole process uses while this lives. It holds what
// `pack` says and nothing else: no entry is visible, no text is set.
class TestStore
{
public:
    explicit TestStore(const char* pack = "{}");

    std::string path() const;

private:
    QTemporaryDir mDir;
};
