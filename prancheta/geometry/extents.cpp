// SPDX-License-Identifier: MIT
// Axis-aligned boxes.
#include <algorithm>

#include "dbmain.h"

void AcDbExtents::addPoint(const AcGePoint3d& p) {
    m_min.set(std::min(m_min.x, p.x), std::min(m_min.y, p.y), std::min(m_min.z, p.z));
    m_max.set(std::max(m_max.x, p.x), std::max(m_max.y, p.y), std::max(m_max.z, p.z));
}

void AcDbExtents::addExt(const AcDbExtents& other) {
    if (other.isEmpty()) return;
    addPoint(other.m_min);
    addPoint(other.m_max);
}
