#include "bench/KeptHome.h"

#include <list>

const TempHome& KeptHome()
{
    static std::list<TempHome> homes;
    return homes.emplace_back();
}
