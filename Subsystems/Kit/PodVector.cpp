// SPDX-License-Identifier: MIT
#include "Subsystems/Kit/PodVector.h"

#include "Subsystems/Kit/Exception.h"

namespace kit::detail {

namespace {
constexpr int LINE_POP_EMPTY = 300;
}

void ThrowEmptyPodVector() {
    throw Exception(L"Kit", L"Subsystems\\Kit\\PodVector.h", LINE_POP_EMPTY,
                    L"Cannot pop element from empty CPodVector", false);
}

} // namespace kit::detail
