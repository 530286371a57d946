// SPDX-License-Identifier: MIT
// What a module tells of its entities through protocol::EntityProperties.
#include "prancheta/desktop/panels/module_sheet.h"

#include "prancheta/desktop/panels/text.h"
#include "protocol/attach.h"

namespace prancheta::desktop {
namespace {

class Rows : public protocol::PropertySheet {
public:
    explicit Rows(std::vector<PropertyRow>& rows) : m_rows(rows) {}

    void group(const ACHAR* title) override { m_group = title != nullptr ? title : L""; }
    void show(const ACHAR* key, const ACHAR* label, const ACHAR* value) override {
        PropertyRow& row = add(PropertyRow::Kind::Show, key, label);
        row.value = value;
        row.input = value;
    }
    void edit(const ACHAR* key, const ACHAR* label, const ACHAR* value,
              const ACHAR* unit) override {
        PropertyRow& row = add(PropertyRow::Kind::Text, key, label);
        row.value = value;
        row.input = value;
        if (unit != nullptr) row.unit = unit;
        row.number = !row.unit.empty();
    }
    void choose(const ACHAR* key, const ACHAR* label, int current, int count,
                const ACHAR* const* choices) override {
        PropertyRow& row = add(PropertyRow::Kind::Choice, key, label);
        row.choices.assign(choices, choices + count);
        row.input = std::to_wstring(current);
        if (current >= 0 && current < count) row.value = choices[current];
    }

private:
    PropertyRow& add(PropertyRow::Kind kind, const ACHAR* key, const ACHAR* label) {
        PropertyRow row;
        row.kind = kind;
        row.key = kModuleKey + std::wstring(key);
        row.label = label;
        row.group = m_group;
        m_rows.push_back(std::move(row));
        return m_rows.back();
    }
    std::vector<PropertyRow>& m_rows;
    std::wstring m_group;
};

}  // namespace

const protocol::EntityProperties* moduleProperties(const AcDbEntity& entity) {
    return protocol::extensionOf<protocol::EntityProperties>(entity,
                                                             protocol::kEntityPropertiesClass);
}

void addModuleRows(const protocol::EntityProperties& properties, const AcDbEntity& entity,
                   std::vector<PropertyRow>& rows) {
    Rows sheet(rows);
    properties.list(entity, sheet);
}

Result<void> setModuleProperty(const protocol::EntityProperties& properties, AcDbObjectId entity,
                               const std::wstring& key, const std::wstring& input) {
    ACHAR* message = nullptr;
    if (properties.set(entity, key.c_str(), input.c_str(), message)) return {};
    const QString why = takenText(message);
    return Error{why.isEmpty() ? "O valor não foi aceito." : why.toStdString()};
}

}  // namespace prancheta::desktop
