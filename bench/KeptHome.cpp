#include "bench/KeptHome.h"

#include <list>

const TempHome& KeptHome()
{
    static auto* const homes = new std::list<TempHome>;
    return homes->emplace_back();
}
