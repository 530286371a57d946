// SPDX-License-Identifier: MIT
// The object snaps: bits of OSMODE and their names.
#pragma once

namespace prancheta {

struct SnapMode {
    int bit;                ///< of OSMODE
    const wchar_t* local;   ///< as shown everywhere, and as typed
    const wchar_t* global;  ///< as typed in every language
};

/// In the order in which they are offered. Three letters of a name are enough to type it.
inline constexpr SnapMode kSnapModes[] = {
    {1, L"Final", L"endpoint"},
    {2, L"Meio", L"midpoint"},
    {4, L"Centro", L"center"},
    {8, L"Nó", L"node"},
    {16, L"Quadrante", L"quadrant"},
    {32, L"Interseção", L"intersection"},
    {4096, L"Extensão", L"extension"},
    {64, L"Inserção", L"insertion"},
    {128, L"Perpendicular", L"perpendicular"},
    {256, L"Tangente", L"tangent"},
    {512, L"Próximo", L"nearest"},
    {2048, L"Aparente", L"apparent"},
    {8192, L"Paralelo", L"parallel"},
};

inline constexpr int kIntersectionSnap = 32;
inline constexpr int kApparentSnap = 2048;
inline constexpr int kExtensionSnap = 4096;
inline constexpr int kParallelSnap = 8192;
inline constexpr int kSnapsOff = 16384;  ///< bit of OSMODE: none of them runs

}  // namespace prancheta
