#pragma once

#include <QTemporaryDir>

#include <string>

// A fresh settings store on a temporary file, which the whole process uses while this lives. It holds what
// `json` says and nothing else: no entry is visible, no text is set. The sections of a pack and those of a scene may
// stand in it side by side.
class TestStore
{
public:
    explicit TestStore(const char* json = "{}");

    // The state of the phone that ./run shows.
    static void loadDemoScene();

    std::string path() const;

private:
    QTemporaryDir mDir;
};
