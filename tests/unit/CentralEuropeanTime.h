#pragma once

#include "unit/Environment.h"

/// Central European time for the life of the object. On Windows the zone is that of the system; scripts/wine.sh starts
/// programs in this one.
class CentralEuropeanTime
{
    Environment m_zone{"TZ", "CET-1CEST,M3.5.0,M10.5.0/3"};
};
