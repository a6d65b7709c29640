#include "platform/window/MessageMap.h"

const MessageEntry* MessageMap::Find(UINT message, UINT code, UINT id) const
{
    for (const MessageMap* map = this; map; map = map->base)
    {
        for (const MessageEntry& entry : map->entries)
        {
            if (entry.message == message && entry.code == code && entry.id == id)
                return &entry;
        }
    }
    return nullptr;
}
