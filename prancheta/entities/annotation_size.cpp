// SPDX-License-Identifier: MIT
// Annotations drawn larger or smaller than the model has them.
#include "prancheta/entities/annotation_size.h"

#include <utility>

namespace prancheta {
namespace {

thread_local double g_factor = 1.0;

}  // namespace

AnnotationSize::AnnotationSize(double factor) : m_outer(std::exchange(g_factor, factor)) {}
AnnotationSize::~AnnotationSize() { g_factor = m_outer; }
double AnnotationSize::factor() { return g_factor; }

}  // namespace prancheta
