// SPDX-License-Identifier: MIT
// Events: what happens in the host, told to whoever records it.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace prancheta {

struct EventPoint {
    double x, y, z;
};

/// null, bool, whole number, number, text (UTF-8), point, or a list of the same.
struct EventValue;
using EventList = std::vector<EventValue>;
struct EventValue {
    std::variant<std::monostate, bool, long long, double, std::string, EventPoint, EventList> data;
};

/// One thing that happened: its kind and its fields in the order in which they are recorded.
struct Event {
    const char* kind;
    std::vector<std::pair<const char*, EventValue>> fields;
};

/// Listener; empty when nobody records, which callers test before they build an event.
using EventSink = std::function<void(const Event&)>;

/// The process's recorder. Set by the front end; `nullptr` switches recording off.
void setEventSink(EventSink sink);
bool recording();
void record(const Event& event);

}  // namespace prancheta
