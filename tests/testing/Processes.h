#pragma once

#include <functional>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

// Whether work(0), work(1) and so on return 0, each in a process of its own and all at the same time.
inline bool succeedTogether(int count, const std::function<int(int)>& work)
{
    std::vector<pid_t> children;
    for (int i = 0; i < count; ++i)
        if (children.emplace_back(fork()) == 0)
            _exit(work(i));
    bool succeeded = true;
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        succeeded = succeeded && status == 0;
    }
    return succeeded;
}
