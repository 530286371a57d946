// SPDX-License-Identifier: MIT
// The process's recorder of events.
#include "prancheta/base/event.h"

namespace prancheta {
namespace {

EventSink& sink() {
    static EventSink theSink;
    return theSink;
}

}  // namespace

void setEventSink(EventSink newSink) { sink() = std::move(newSink); }

bool recording() { return static_cast<bool>(sink()); }

void record(const Event& event) {
    if (sink()) sink()(event);
}

}  // namespace prancheta
