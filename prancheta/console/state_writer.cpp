// SPDX-License-Identifier: MIT
// Properties as JSON.
#include "prancheta/console/state_writer.h"

#include "prancheta/base/text.h"

namespace prancheta::console {

Json pointJson(const AcGePoint3d& p) { return Json::array({p.x, p.y, p.z}); }

Json handleJson(const AcDbObjectId& id) {
    if (id.isNull()) return nullptr;
    ACHAR text[17];
    return id.handle().getIntoAsciiBuffer(text) ? Json(toUtf8(text)) : Json(nullptr);
}

void JsonVisitor::text(const ACHAR* name, const ACHAR* value) {
    put(name, value != nullptr ? Json(toUtf8(value)) : Json());
}

Json& JsonVisitor::put(const ACHAR* name, Json value) {
    Json& container = *m_stack.back();
    if (container.is_array()) {
        container.push_back(std::move(value));
        return container.back();
    }
    return container[toUtf8(name)] = std::move(value);
}

}  // namespace prancheta::console
