// SPDX-License-Identifier: MIT
// The editor's events.
#include "prancheta/editor/events.h"

#include "acutmem.h"
#include "adscodes.h"
#include "prancheta/base/text.h"

namespace prancheta {

EventValue eventText(std::wstring_view text) { return {toUtf8(text)}; }

EventValue eventPoint(const AcGePoint3d& p) { return {EventPoint{p.x, p.y, p.z}}; }

EventValue eventHandle(AcDbObjectId id) { return eventText(handleText(id.handle())); }

EventValue eventVariable(const VariableValue& value) {
    if (const short* number = std::get_if<short>(&value)) return {static_cast<long long>(*number)};
    if (const double* real = std::get_if<double>(&value)) return {*real};
    if (const std::wstring* text = std::get_if<std::wstring>(&value)) return eventText(*text);
    return eventPoint(std::get<AcGePoint3d>(value));
}

std::wstring handleText(AcDbHandle handle) {
    std::wstring digits;
    for (Adesk::UInt64 rest = handle.value(); rest != 0; rest >>= 4)
        digits.insert(digits.begin(), L"0123456789ABCDEF"[rest & 15]);
    return digits.empty() ? L"0" : digits;
}

void recordCommand(std::wstring_view name, std::wstring_view group) {
    if (recording()) record({"comando", {{"nome", eventText(name)}, {"grupo", eventText(group)}}});
}

void recordCommandEnd(std::wstring_view name) {
    if (recording()) record({"fim", {{"nome", eventText(name)}}});
}

void recordText(std::wstring_view text) {
    if (recording()) record({"texto", {{"texto", eventText(text)}}});
}

void recordAlert(std::wstring_view text) {
    if (recording()) record({"alerta", {{"texto", eventText(text)}}});
}

void recordVariable(std::wstring_view name, const VariableValue& value) {
    if (recording())
        record({"variavel", {{"nome", eventText(name)}, {"valor", eventVariable(value)}}});
}

namespace {

const char* kindName(InputKind kind) {
    switch (kind) {
        case InputKind::Point:
        case InputKind::Corner:
        case InputKind::Drag:
        case InputKind::Entity:
            return "ponto";
        case InputKind::Distance:
            return "distancia";
        case InputKind::Angle:
            return "angulo";
        case InputKind::Keyword:
            return "palavra";
        default:
            return "texto";
    }
}

EventValue answerValue(InputKind kind, const InputValue& value) {
    if (value.status == RTKWORD) return eventText(value.text);
    if (value.status != RTNORM) return {};
    switch (kind) {
        case InputKind::Point:
        case InputKind::Corner:
        case InputKind::Drag:
            return eventPoint(value.point);
        case InputKind::Distance:
        case InputKind::Angle:
        case InputKind::Integer:
        case InputKind::Real:
            return {value.number};
        case InputKind::Selection:
        case InputKind::Entity: {
            if (value.entities.empty()) return eventPoint(value.point);
            EventList list;
            for (const AcDbObjectId& id : value.entities) list.push_back(eventHandle(id));
            return {std::move(list)};
        }
        default:
            return eventText(value.text);
    }
}

}  // namespace

void recordPrompt(const InputRequest& request) {
    if (!recording()) return;
    EventValue base;
    if (request.base) base = eventPoint(*request.base);
    record({"pede",
            {{"tipo", {std::string(kindName(request.kind))}},
             {"texto", eventText(request.prompt)},
             {"base", base}}});
}

void recordAnswer(InputKind kind, const InputValue& value) {
    if (!recording()) return;
    record({"resposta",
            {{"status", {static_cast<long long>(value.status)}},
             {"valor", answerValue(kind, value)}}});
}

void recordAppended(const AcDbEntity& entity) {
    if (!recording()) return;
    ACHAR* layer = entity.layer();
    record({"cria",
            {{"handle", eventHandle(entity.objectId())},
             {"classe", eventText(entity.isA()->name())},
             {"camada", eventText(layer != nullptr ? layer : L"0")}}});
    acutDelString(layer);
}

void recordErased(const AcDbEntity& entity) {
    if (recording()) record({"apaga", {{"handle", eventHandle(entity.objectId())}}});
}

}  // namespace prancheta
