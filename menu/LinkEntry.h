#pragma once

#include "Entry.h"

#include <utility>

// An entry that opens a link.
class LinkEntry : public Entry
{
public:
    virtual const std::string& url() const { return mUrl; }

protected:
    explicit LinkEntry(std::string url) : mUrl(std::move(url)) {}

private:
    const std::string mUrl;
};
