// SPDX-License-Identifier: MIT
// Types of the C-style interface.
#pragma once

#include <cstdint>

#include "adesk.h"

using ads_real = double;

/// x, y, z; passed by reference as every array.
using ads_point = ads_real[3];

/// Opaque name of an entity or a selection set: compare both words. Valid while the drawing is
/// open.
using ads_name = std::intptr_t[2];

using ads_matrix = ads_real[4][4];

constexpr int X = 0;
constexpr int Y = 1;
constexpr int Z = 2;

inline void ads_name_set(const ads_name from, ads_name to) {
    to[0] = from[0];
    to[1] = from[1];
}
inline bool ads_name_equal(const ads_name a, const ads_name b) {
    return a[0] == b[0] && a[1] == b[1];
}
inline void ads_name_clear(ads_name n) { n[0] = n[1] = 0; }
inline bool ads_name_nil(const ads_name n) { return n[0] == 0 && n[1] == 0; }
inline void ads_point_set(const ads_point from, ads_point to) {
    to[X] = from[X];
    to[Y] = from[Y];
    to[Z] = from[Z];
}

struct ads_binary {
    short clen;
    char* buf;
};

union ads_u_val {
    ads_real rreal;
    ads_real rpoint[3];
    short rint;
    ACHAR* rstring;
    std::intptr_t rlname[2];
    Adesk::Int32 rlong;
    ads_binary rbinary;
};

/// One value of a typed list. `restype` is an RT* code or a DXF group code; `rstring` and
/// `rbinary.buf` of a list made by the host belong to the list and go with `acutRelRb`.
struct resbuf {
    resbuf* rbnext;
    short restype;
    ads_u_val resval;
};
