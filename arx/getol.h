// SPDX-License-Identifier: MIT
// Tolerance of geometric comparisons.
#pragma once

class AcGeTol {
public:
    /// Points nearer than this are one (drawing units).
    double equalPoint() const { return m_point; }
    /// Vectors whose difference is shorter than this are equal.
    double equalVector() const { return m_vector; }
    void setEqualPoint(double value) { m_point = value; }
    void setEqualVector(double value) { m_vector = value; }

private:
    double m_point = 1e-10;
    double m_vector = 1e-10;
};

struct AcGeContext {
    static AcGeTol gTol;
};
