#pragma once

#include "vtTypes.h"

#include <vector>

// A headline channel. Built from its identifier; the cache fills the rest.
struct Channel
{
    explicit Channel(const vtTypes::ID& id) : id(id) {}

    vtTypes::ID id;
    vtTypes::String title; // what lists show
};

// A list of content objects.
struct Container
{
    std::vector<vtTypes::ID> children;
};

// The content the service has downloaded. Both get() return 0, or non-zero with the output left alone when
// there is no such object.
class NR_ContentCache
{
public:
    static NR_ContentCache* getInstance();

    int get(const vtTypes::ID& id, Container& container); // "container1" holds the user's channels
    int get(const vtTypes::ID& id, Channel& channel);
};
