// SPDX-License-Identifier: MIT
#include "Entries.h"

namespace geom::bench {

const std::vector<const Library*>& Libraries() {
    static const std::vector<const Library*> libraries = {
        &GeomEntry(),         &PlainLoopEntry(),    &GluEntry(),
#ifdef GEOM_HAS_POLYCLIPPING
        &PolyclippingEntry(),
#endif
#ifdef GEOM_HAS_BOOST_GEOMETRY
        &BoostEntry(),
#endif
#ifdef GEOM_HAS_GEOS
        &GeosEntry(),         &PreparedGeosEntry(),
#endif
#ifdef GEOM_HAS_AGG
        &AggEntry(),
#endif
#ifdef GEOM_HAS_NANOFLANN
        &NanoflannEntry(),
#endif
    };
    return libraries;
}

} // namespace geom::bench
