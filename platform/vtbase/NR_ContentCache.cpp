#include "NR_ContentCache.h"

#include "CoreStore.h"
#include "vtString.h"

namespace {

const vtTypes::ID userChannels("container1");

} // namespace

NR_ContentCache* NR_ContentCache::getInstance()
{
    static NR_ContentCache cache;
    return &cache;
}

int NR_ContentCache::get(const vtTypes::ID& id, Container& container)
{
    if (id != userChannels)
        return STORE_NOT_FOUND;
    std::vector<Scene::Channel> channels;
    if (const int status = CoreStore::instance().channels(channels); status != STORE_OK)
        return status;
    container.children.clear();
    for (const Scene::Channel& channel : channels)
        container.children.emplace_back(channel.id);
    return STORE_OK;
}

int NR_ContentCache::get(const vtTypes::ID& id, Channel& channel)
{
    Scene::Channel stored;
    if (const int status = CoreStore::instance().channel(id.text(), stored); status != STORE_OK)
        return status;
    if (!stored.title)
        return STORE_NOT_FOUND;
    if (!vtStringFromUtf8(*stored.title, channel.title))
        return STORE_FAILED;
    channel.id = id;
    return STORE_OK;
}
