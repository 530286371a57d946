// SPDX-License-Identifier: MIT
// Annotations drawn larger or smaller than the model has them.
#pragma once

namespace prancheta {

/// While it lives, what dimensions, leaders and weld symbols draw for the reader (letters, arrows,
/// gaps) is `factor` times as large, between the points that they have. For drawing only: what
/// reads sizes meanwhile reads those. Scopes nest; the innermost holds.
class AnnotationSize {
public:
    explicit AnnotationSize(double factor);
    ~AnnotationSize();
    AnnotationSize(const AnnotationSize&) = delete;
    AnnotationSize& operator=(const AnnotationSize&) = delete;

    /// 1 without a scope.
    static double factor();

private:
    double m_outer;
};

}  // namespace prancheta
