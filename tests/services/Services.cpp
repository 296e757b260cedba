// SPDX-License-Identifier: MIT
#include "tests/services/Services.h"

namespace geom::test {

std::vector<Service> Services() {
    std::vector<Service> services;
    AddFoundationServices(services);
    AddSetOperationServices(services);
    AddPolygonServices(services);
    AddClippingServices(services);
    AddLineServices(services);
    AddMeasureServices(services);
    AddCurveServices(services);
    AddSpaceServices(services);
#if !defined(WITHOUT_TESSELLATOR)
    AddTessellatorServices(services);
#endif
    return services;
}

std::uint64_t DigestOf(const Service& service, int rounds) {
    Digest results;
    service.run(rounds, results);
    return results.Value();
}

} // namespace geom::test
