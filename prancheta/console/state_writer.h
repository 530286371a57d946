// SPDX-License-Identifier: MIT
// Properties that modules tell, as JSON.
#pragma once

#include <nlohmann/json.hpp>
#include <vector>

#include "protocol/report.h"

namespace prancheta::console {

using Json = nlohmann::ordered_json;

/// [x, y, z], drawing units, world.
Json pointJson(const AcGePoint3d& p);
/// Upper-case hexadecimal; null for a null id.
Json handleJson(const AcDbObjectId& id);

/// Puts what it is told into an object.
class JsonVisitor : public protocol::PropertyVisitor {
public:
    explicit JsonVisitor(Json& target) : m_stack{&target} {}

    void number(const ACHAR* name, double value) override { put(name, value); }
    void integer(const ACHAR* name, long long value) override { put(name, value); }
    void text(const ACHAR* name, const ACHAR* value) override;
    void point(const ACHAR* name, const AcGePoint3d& value) override {
        put(name, pointJson(value));
    }
    void object(const ACHAR* name, const AcDbObjectId& value) override {
        put(name, handleJson(value));
    }
    void beginList(const ACHAR* name) override { m_stack.push_back(&put(name, Json::array())); }
    void endList() override { m_stack.pop_back(); }
    void beginGroup(const ACHAR* name) override { m_stack.push_back(&put(name, Json::object())); }
    void endGroup() override { m_stack.pop_back(); }

private:
    Json& put(const ACHAR* name, Json value);

    // A container is finished before its parent grows, so the pointers stay good.
    std::vector<Json*> m_stack;
};

}  // namespace prancheta::console
