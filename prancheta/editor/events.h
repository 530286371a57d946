// SPDX-License-Identifier: MIT
// The editor's events, built only when somebody records.
#pragma once

#include <string_view>

#include "prancheta/base/event.h"
#include "prancheta/database/sysvars.h"
#include "prancheta/editor/command.h"

namespace prancheta {

EventValue eventText(std::wstring_view text);
/// World coordinates.
EventValue eventPoint(const AcGePoint3d& p);
EventValue eventHandle(AcDbObjectId id);
EventValue eventVariable(const VariableValue& value);

void recordCommand(std::wstring_view name, std::wstring_view group);
void recordCommandEnd(std::wstring_view name);
void recordText(std::wstring_view text);
void recordAlert(std::wstring_view text);
void recordPrompt(const InputRequest& request);
void recordAnswer(InputKind kind, const InputValue& value);
void recordVariable(std::wstring_view name, const VariableValue& value);
void recordAppended(const AcDbEntity& entity);
void recordErased(const AcDbEntity& entity);

/// Upper-case hexadecimal text of a handle.
std::wstring handleText(AcDbHandle handle);

}  // namespace prancheta
