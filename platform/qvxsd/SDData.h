#pragma once

#include <string>

// What a service is asked to work on. Only the data counts on this host.
struct SDData
{
    std::string mimeType;
    std::string data;
    std::string text;
    bool flag = false;
    int number = 0;
};
