// SPDX-License-Identifier: MIT
#pragma once

#include "../Library.h"

/// \file
/// One entry for each library; a peer's exists where the peer is installed.

namespace geom::bench {

const Library& GeomEntry();
const Library& PlainLoopEntry();
const Library& GluEntry();
const Library& PolyclippingEntry();
const Library& BoostEntry();
const Library& GeosEntry();
const Library& PreparedGeosEntry();
const Library& AggEntry();
const Library& NanoflannEntry();

} // namespace geom::bench
