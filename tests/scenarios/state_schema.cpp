// SPDX-License-Identifier: MIT
// States against their schema, and that the schema says something.
#include "tests/scenarios/state_schema.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <valijson/adapters/nlohmann_json_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validation_results.hpp>
#include <valijson/validator.hpp>

using Json = nlohmann::json;
using Adapter = valijson::adapters::NlohmannJsonAdapter;

namespace {

const valijson::Schema& stateSchema() {
    static valijson::Schema schema;
    static const bool read = [] {
        std::ifstream file(std::filesystem::path(HOUSE_SOURCE_DIR) / "docs/estado.schema.json");
        const Json text = Json::parse(file);
        valijson::SchemaParser(valijson::SchemaParser::kDraft7)
            .populateSchema(Adapter(text), schema);
        return true;
    }();
    (void)read;
    return schema;
}

}  // namespace

std::string schemaFaults(const Json& state) {
    valijson::Validator validator;
    valijson::ValidationResults results;
    if (validator.validate(stateSchema(), Adapter(state), &results)) return {};
    std::string faults;
    for (const auto& error : results) {
        for (const std::string& part : error.context) faults += part;
        faults += ": " + error.description + "\n";
    }
    return faults;
}

TEST(StateSchema, RefusesWhatIsMissingOrOfAnotherType) {
    const Json sound = Json::parse(R"({"versao": 1, "arquivo": null, "variaveis": {"CLAYER": "0"},
        "unidades": {"comprimento": "mm", "angulo": "rad", "massa": "kg", "area": "mm2", "area_pintura": "m2"},
        "camadas": [], "lista_material": [],
        "entidades": [{"handle": "2F", "classe": "ForeignEntity", "camada": "0", "limites": null,
                       "espaco": "Model", "tipo_dxf": "MESH"}]})");
    EXPECT_EQ(schemaFaults(sound), "");
    const char* const faults[] = {
        R"([{"op": "remove", "path": "/versao"}])",
        R"([{"op": "add", "path": "/outro", "value": 1}])",
        R"([{"op": "replace", "path": "/entidades/0/handle", "value": 47}])",
        R"([{"op": "remove", "path": "/entidades/0/tipo_dxf"}])",
        R"([{"op": "replace", "path": "/entidades/0/classe", "value": "ZpUDobrado"}])",
        R"([{"op": "add", "path": "/camadas/0", "value": {"nome": "0"}}])"};
    for (const char* const fault : faults)
        EXPECT_NE(schemaFaults(sound.patch(Json::parse(fault))), "") << fault;
}
