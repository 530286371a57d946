// SPDX-License-Identifier: MIT
// Result and type codes of the C-style interface.
#pragma once

enum : int {
    RTNONE = 5000,
    RTREAL = 5001,
    RTPOINT = 5002,
    RTSHORT = 5003,
    RTANG = 5004,
    RTSTR = 5005,
    RTENAME = 5006,
    RTPICKS = 5007,
    RTORINT = 5008,
    RT3DPOINT = 5009,
    RTLONG = 5010,
    RTVOID = 5014,
    RTLB = 5016,
    RTLE = 5017,
    RTDOTE = 5018,
    RTNIL = 5019,
    RTDXF0 = 5020,
    RTT = 5021,
    RTRESBUF = 5023,
    RTMODELESS = 5027,

    RTNORM = 5100,
    RTERROR = -5001,
    RTCAN = -5002,
    RTREJ = -5003,
    RTFAIL = -5004,
    RTKWORD = -5005,
};

/// Bits of acedInitGet: they apply to the next input call only.
enum : int {
    RSG_NONULL = 1,
    RSG_NOZERO = 2,
    RSG_NONEG = 4,
    RSG_NOLIM = 8,
    RSG_DASH = 32,
    RSG_2D = 64,
    RSG_OTHER = 128,
    RSG_DDISTFIRST = 256,
    RSG_TRACKUCS = 512,
    RSG_NOORTHOZ = 1024,
    RSG_NOOSNAP = 2048,
};
