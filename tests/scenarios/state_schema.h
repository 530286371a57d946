// SPDX-License-Identifier: MIT
// The published form of a final state.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

/// What of a state does not fit docs/estado.schema.json, one line each; empty when all does.
std::string schemaFaults(const nlohmann::json& state);
