// SPDX-License-Identifier: MIT
// Events as JSON lines.
#include "prancheta/console/event_log.h"

#include <cerrno>
#include <iostream>
#include <nlohmann/json.hpp>

#include "prancheta/base/file.h"

namespace prancheta::console {
namespace {

using Json = nlohmann::ordered_json;

Json toJson(const EventValue& value) {
    struct Visitor {
        Json operator()(std::monostate) const { return nullptr; }
        Json operator()(bool v) const { return v; }
        Json operator()(long long v) const { return v; }
        Json operator()(double v) const { return v; }
        Json operator()(const std::string& v) const { return v; }
        Json operator()(const EventPoint& p) const { return Json::array({p.x, p.y, p.z}); }
        Json operator()(const EventList& list) const {
            Json out = Json::array();
            for (const EventValue& item : list) out.push_back(toJson(item));
            return out;
        }
    };
    return std::visit(Visitor{}, value.data);
}

}  // namespace

EventLog::~EventLog() { (void)close(); }

Result<void> EventLog::open(const std::filesystem::path& path) {
    m_path = path;
    const bool output = isStandardOutput(path);
    if (!output) m_file.open(path, std::ios::binary | std::ios::trunc);
    if (!m_file)
        return Error{"não foi possível gravar o registro: " + errnoText(errno), path.string(), 0,
                     0};
    m_out.rdbuf(output ? std::cout.rdbuf() : m_file.rdbuf());
    setEventSink([this](const Event& event) { write(event); });
    return {};
}

Result<void> EventLog::close() {
    if (m_out.rdbuf() == nullptr) return {};
    setEventSink(nullptr);
    m_out.rdbuf(nullptr);
    if (m_file.is_open()) m_file.close();
    if (!m_file && m_errno == 0) m_errno = errno;
    if (m_errno == 0) return {};
    return Error{"o registro ficou incompleto: " + errnoText(m_errno), m_path.string(), 0, 0};
}

void EventLog::write(const Event& event) {
    Json object;
    object["ev"] = event.kind;
    if (m_script.line() > 0) object["linha"] = m_script.line();
    for (const auto& [name, value] : event.fields) object[name] = toJson(value);
    const std::string line = object.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
    // Flushed at once: whoever follows the record sees what has happened, also when the process
    // dies.
    if (!(m_out << line << std::flush) && m_errno == 0) m_errno = errno != 0 ? errno : EIO;
}

}  // namespace prancheta::console
