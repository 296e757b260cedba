// SPDX-License-Identifier: MIT
#include "geometry/Gpc.h"
