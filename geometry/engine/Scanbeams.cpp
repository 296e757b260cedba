// SPDX-License-Identifier: MIT
#include "geometry/engine/Scanbeams.h"

#include <algorithm>

namespace geom::detail {

void Scanbeams::Append(double y) {
    if (y == 0.0 && !m_hasZero) {
        m_firstZero = y;
        m_hasZero = true;
    }
    m_ordinates.Append(y);
}

// Equal ordinates differ in nothing but the sign of zero, and there the first one counts.
void Scanbeams::Sort() {
    std::sort(m_ordinates.begin(), m_ordinates.end());
    double* end = std::unique(m_ordinates.begin(), m_ordinates.end());
    m_ordinates.Truncate(static_cast<std::uint64_t>(end - m_ordinates.begin()));
    double* zero = std::lower_bound(m_ordinates.begin(), m_ordinates.end(), 0.0);
    if (zero != m_ordinates.end() && *zero == 0.0) {
        *zero = m_firstZero;
    }
}

} // namespace geom::detail
