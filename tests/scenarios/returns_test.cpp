// SPDX-License-Identifier: MIT
// A laced member with plates, dimensions and list rows on its way there and back: moved, turned,
// undone, redone, saved, opened. The state is that of the step that it returns to.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>

namespace fs = std::filesystem;
using Json = nlohmann::json;

namespace {

const char* const kMember =
    "cantdteel\nlista=12\na=10\nvista0=0\nOutraVista\nl=1000\ngerar_matlist=1\nnum_pecas="
    "2\naccept\n"
    "dimensionar=1\ntravejar\naltura=60\nlargura=10\nn_partes=8\naccept\naccept\n100,200\n0\n";
const char* const kMove = "_move\n_all\n\n0,0\n350.5,-20.25\n";
const char* const kTurn = "_rotate\n_all\n\n30,40\n37\n";

class Returns : public testing::Test {
protected:
    Returns() {
        std::string name = (fs::temp_directory_path() / "returns-XXXXXX").string();
        m_folder = ::mkdtemp(name.data());
        fs::copy(fs::path(HOUSE_BINARY_DIR) / "instalacao", m_folder / "instalacao",
                 fs::copy_options::recursive);
    }
    ~Returns() override { fs::remove_all(m_folder); }

    /// The profiles that a script draws, and the lines that PECATEXTO prints of them.
    struct Told {
        std::vector<std::string> lines;
        std::vector<Json> pecas;
    };
    Told toldBy(const std::string& script) const {
        Told told;
        const Json state = stateAfter(script + "PECATEXTO\n_all\n\n");
        for (const Json& entity : state["entidades"])
            if (entity.contains("secao")) told.pecas.push_back(entity);
        std::ifstream in(m_folder / "saida");
        for (std::string line; std::getline(in, line);) {
            if (line.starts_with("Selecione objetos:"))
                told.lines.clear();
            else if (!line.empty() && !line.starts_with("Comando:"))
                told.lines.push_back(line);
        }
        return told;
    }

    /// What is drawn and listed after a script.
    Json stateAfter(const std::string& script) const {
        for (const char* const drawing : {"a.dxf", "b.dxf"}) fs::remove(m_folder / drawing);
        std::ofstream(m_folder / "roteiro") << script;
        const std::string program = (fs::path(HOUSE_BINARY_DIR) / "bin/prancheta-console").string();
        const std::string run = "cd '" + m_folder.string() + "' && unset ZPFORJA2010 && '" +
                                program +
                                "' --instalacao instalacao -r roteiro --estado e.json >saida 2>&1";
        EXPECT_EQ(std::system(run.c_str()), 0) << script;
        std::ifstream in(m_folder / "e.json");
        const Json state = Json::parse(in);
        return {{"entidades", state["entidades"]},
                {"lista_material", state["lista_material"]},
                {"camadas", state["camadas"]}};
    }

    /// The files of a text's examples written and its commands run, each in its order: what a
    /// paragraph announces as "Arquivo `name`:" or "Comando:" (with ", que termina com 1" where the
    /// exit code is to be that) stands indented below it. A system without Python leaves that out.
    int runExamples(const fs::path& document) const {
        std::ifstream in(document);
        std::ofstream file;
        bool command = false;
        int code = 0;
        int commands = 0;
        for (std::string line; std::getline(in, line);) {
            const bool indented = line.starts_with("    ");
            if (indented && command) {
                std::string words = line.substr(4);
                const std::string name = "prancheta-console";
                const std::string programs = (fs::path(HOUSE_BINARY_DIR) / "bin").string();
                const bool python = words.starts_with("python3 ");
                ++commands;
                if (python && std::system("command -v python3 >/dev/null") != 0) continue;
                EXPECT_TRUE(python || words.starts_with(name)) << line;
                if (!python) words.insert(name.size(), " --instalacao instalacao");
                words = "cd '" + m_folder.string() + "' && unset ZPFORJA2010 && PATH='" + programs +
                        "':$PATH && " + words + " >saida 2>&1";
                const int status = std::system(words.c_str());
                EXPECT_EQ(WIFEXITED(status) ? WEXITSTATUS(status) : -1, code)
                    << line << "\n"
                    << std::ifstream(m_folder / "saida").rdbuf();
            } else if (indented && file.is_open()) {
                file << line.substr(4) << "\n";
            } else if (!line.empty()) {
                file.close();
                code = line.ends_with("omando, que termina com 1:") ? 1 : 0;
                command = line.ends_with("omando:") || code == 1;
                const auto name = line.rfind("rquivo `");
                if (name != line.npos && line.ends_with("`:"))
                    file.open(m_folder / line.substr(name + 8, line.size() - name - 10));
            }
        }
        return commands;
    }
    /// A drawing as programs without extended data save it: no such data, no dictionaries, no
    /// links, factors of z of 0. `change` may do more to each group of the blocks.
    void passThroughAnother(const std::string& from, const std::string& to,
                            const std::function<void(int, std::string&)>& change = {}) const {
        std::ifstream in(m_folder / from);
        std::ofstream out(m_folder / to);
        bool links = false;
        std::string pending;  // a section that has no name yet
        std::string section;
        std::string record;
        for (std::string code, value; std::getline(in, code) && std::getline(in, value);) {
            const int number = std::stoi(code);
            if (number == 0) record = value;
            if (number == 0 && value == "SECTION") {
                pending = code + "\n" + value + "\n";
                continue;
            }
            if (!pending.empty()) section = value;
            if (number == 102) links = value.front() == '{';
            const bool kept = number < 1000 && number != 102 && !links && section != "OBJECTS";
            if (section == "BLOCKS" && change) change(number, value);
            if (record == "INSERT" && number == 10) value += "\n 43\n0";
            if (kept || value == "EOF") out << pending << code << "\n" << value << "\n";
            pending.clear();
            if (value == "ENDSEC") section.clear();
        }
    }
    std::string printed() const {
        std::stringstream text;
        text << std::ifstream(m_folder / "saida").rdbuf();
        return text.str();
    }
    bool has(const std::string& name) const { return fs::exists(m_folder / name); }
    Json stateIn(const std::string& name) const { return Json::parse(textOf(name)); }
    std::string textOf(const std::string& name) const {
        std::ifstream in(m_folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

private:
    fs::path m_folder;
};

/// What a scenario draws, each piece turned by 37 degrees and `then` done with it; without the
/// scenario's own edits.
std::string turnedPecas(const std::string& scenario, const std::string& then) {
    std::ifstream in(fs::path(HOUSE_SOURCE_DIR) / "tests/scenarios" / scenario / "roteiro.txt");
    std::string script;
    std::string former;
    bool editing = false;
    for (std::string line; std::getline(in, line); former = line) {
        editing = editing || line == "EDITAPERFIL";
        const bool turns = line == "0" && former.find(',') != std::string::npos;
        if (!editing) script += turns ? "37\n" + then : line + "\n";
        editing = editing && line != "accept";
    }
    return script;
}

/// First place where two states differ by more than rounding; empty when they are equal.
std::string difference(const Json& a, const Json& b, const std::string& where = {}) {
    if (a.is_number() && b.is_number()) {
        const double x = a.get<double>();
        const double y = b.get<double>();
        const bool equal = std::abs(x - y) <= 1e-9 * std::max(1.0, std::abs(x));
        return equal ? "" : where + ": " + a.dump() + " | " + b.dump();
    }
    if (a.type() != b.type() || a.size() != b.size())
        return where + ": " + a.dump().substr(0, 200) + " | " + b.dump().substr(0, 200);
    if (!a.is_structured()) return a == b ? "" : where + ": " + a.dump() + " | " + b.dump();
    for (auto i = a.begin(), j = b.begin(); i != a.end(); ++i, ++j) {
        const std::string name = a.is_object() ? i.key() : std::to_string(i - a.begin());
        if (a.is_object() && i.key() != j.key()) return where + ": " + i.key() + " | " + j.key();
        if (auto found = difference(*i, *j, where + "/" + name); !found.empty()) return found;
    }
    return "";
}

}  // namespace

TEST_F(Returns, EveryStepBackGivesTheStateOfThatStep) {
    const std::string member = kMember;
    const Json made = stateAfter(member);
    // Member, nine plates, three dimensions, marks of the member's row and of the plates'.
    ASSERT_EQ(made["entidades"].size(), 15U);
    ASSERT_EQ(made["lista_material"].size(), 2U);
    const Json moved = stateAfter(member + kMove);
    const Json turned = stateAfter(member + kMove + kTurn);
    ASSERT_NE(difference(made, moved), "");
    ASSERT_NE(difference(moved, turned), "");

    EXPECT_EQ(difference(stateAfter(member + kMove + kTurn + "_u\n"), moved), "");
    EXPECT_EQ(difference(stateAfter(member + kMove + kTurn + "_u\n_u\n"), made), "");
    EXPECT_EQ(difference(stateAfter(member + kMove + kTurn + "_u\n_u\n_redo\n"), moved), "");
    EXPECT_EQ(difference(stateAfter(member + kMove + kTurn + "_u\n_u\n_redo\n_redo\n"), turned),
              "");

    const std::string reopened = "_saveas\na.dxf\n_open\na.dxf\n";
    const std::string again = "_saveas\nb.dxf\n_open\nb.dxf\n";
    EXPECT_EQ(difference(stateAfter(member + kMove + kTurn + reopened), turned), "");
    EXPECT_EQ(difference(stateAfter(member + reopened + kMove + kTurn), turned), "");
    EXPECT_EQ(difference(stateAfter(member + reopened + kMove + kTurn + "_u\n_u\n"), made), "");
    EXPECT_EQ(difference(stateAfter(member + kMove + reopened + again + kTurn), turned), "");
}

TEST_F(Returns, AnEditWithoutAChangeChangesNothing) {
    const std::string reopened = "_saveas\na.dxf\n_open\na.dxf\n";
    const std::string edit = "EDITAPERFIL\nL\naccept\n";
    for (const std::string scenario : {"edita-todos", "compostos-secoes"}) {
        const Json drawn = stateAfter(turnedPecas(scenario, reopened));
        ASSERT_GT(drawn["entidades"].size(), 20U);
        const Json edited = stateAfter(turnedPecas(scenario, reopened + edit));
        EXPECT_EQ(difference(edited, drawn), "") << scenario;
        EXPECT_TRUE(edited == drawn) << scenario;
    }
}

/// What a piece is, wherever it stands.
static Json memberOf(const Json& peca) {
    Json member{{"vista", peca["construtor"]["vista"]},
                {"cotas", peca["cotas"].size()},
                {"chapas", peca["ligados"].size()}};
    for (const char* const field :
         {"classe", "camada", "tipo_barra", "comprimento", "designacao", "secao", "peso", "area",
          "perimetro", "marca", "conta", "corte_inicio", "corte_fim"})
        member[field] = peca[field];
    // Cuts across the view show only in how long the picture is.
    const auto between = [&](int axis) {
        return peca["faces"][2][axis].get<double>() - peca["faces"][0][axis].get<double>();
    };
    member["figura"] = std::hypot(between(0), between(1));
    return member;
}

static std::string drawnByLines(const std::vector<std::string>& lines, const std::string& behind) {
    std::string script;
    for (std::size_t i = 0; i < lines.size(); ++i)
        script += "PECA\n" + lines[i] + behind + "\n" + std::to_string(1000 * i) + ",0\n30\n";
    return script;
}

TEST_F(Returns, ATextGivesThePieceThatItWasPrintedOf) {
    const auto compare = [&](const Told& drawn, const std::string& what) {
        ASSERT_EQ(drawn.lines.size(), drawn.pecas.size()) << what;
        const Told again = toldBy(drawnByLines(drawn.lines, ""));
        ASSERT_EQ(again.lines, drawn.lines) << what;
        for (std::size_t i = 0; i < drawn.pecas.size(); ++i)
            EXPECT_EQ(difference(memberOf(drawn.pecas[i]), memberOf(again.pecas[i])), "")
                << drawn.lines[i];
    };
    // The dialogs of all thirty commands, and the pieces that they draw seen from all sides.
    const Told members = toldBy(turnedPecas("edita-todos", ""));
    ASSERT_EQ(members.pecas.size(), 30U);
    compare(members, "edita-todos");
    for (const char* const vista : {" vista=1", " vista=2", " vista=4", " vista=2 giro=90"}) {
        const Told seen = toldBy(drawnByLines(members.lines, vista));
        for (const Json& peca : seen.pecas)
            EXPECT_EQ(peca["construtor"]["vista"], vista[7] - '0') << peca["classe"];
        compare(seen, vista);
    }
    compare(toldBy(turnedPecas("compostos-secoes", "")), "compostos-secoes");
    // Dimensions, a role, steel, a value of its own, and further views that do not count.
    compare(toldBy("peca 2L + 50x50x6 a=10 av=8 chapas=60,50,4 plano=1 L=3000 n=3 marca=V7 cotas\n"
                   "0,0\n0\nVISTAS\n0,0\nTodas\n\n\n"
                   "peca U 203x77x3,1 ri=6 L=2000,25 corte_fim=-45 corte_inicio=30 marca=V9 "
                   "tipo=ter\u00e7a "
                   "aco=\"A 36\"\n0,9000\n0\nVISTAS\n500,9000\nsUperior\n\n\n"),
            "palavras");
}

TEST_F(Returns, PiecesComeBackFromAProgramThatDroppedTheirData) {
    const auto pecasOf = [](const Json& state) {
        std::vector<Json> pecas;
        for (const Json& entity : state["entidades"]) {
            if (!entity["classe"].get<std::string>().starts_with("Zp")) continue;
            if (!entity.contains("secao") || entity["secao"].is_null()) {
                pecas.push_back({{"classe", entity["classe"]}, {"limites", entity["limites"]}});
                continue;
            }
            pecas.push_back(memberOf(entity));
            pecas.back()["faces"] = entity["faces"];
            pecas.back().erase("cotas");  // these do not follow any more
        }
        return pecas;
    };
    const auto rowsOf = [](Json state) {
        for (Json& row : state["lista_material"])
            for (const char* const field : {"ids", "pecas", "vistas"}) row.erase(field);
        return state["lista_material"];
    };
    // All classes turned, a laced member, its mirror image, a section, one made twice as large.
    const std::string script =
        turnedPecas("edita-todos", "") + kMember +
        "_mirror\n_l\n\n0,0\n50,90\nN\nPECA\nUe 200x75x20x2,65\n0,-9000\n20\n"
        "_scale\n_l\n\n0,-9000\n2\nPECA\nU 200x75x3 L=2000 n=2 marca=X\n0,-5000\n0\n"
        "_mirror\n_l\n\n0,0\n50,90\nN\n_saveas\na.dxf\n";
    const Json drawn = stateAfter(script);
    ASSERT_GT(pecasOf(drawn).size(), 50U);
    stateAfter(script + "_saveas\nb.dxf\n");
    passThroughAnother("b.dxf", "c.dxf");
    const Json back = stateAfter("_open\nc.dxf\nLIGARPECAS\n");
    EXPECT_NE(printed().find(" peças viraram blocos comuns (o outro programa retirou os dados)."),
              std::string::npos)
        << printed();
    EXPECT_EQ(difference(Json(pecasOf(drawn)), Json(pecasOf(back))), "");
    EXPECT_EQ(difference(rowsOf(drawn), rowsOf(back)), "");
    EXPECT_EQ(pecasOf(stateAfter("_open\nc.dxf\nLIGARPECAS\n_u\n")).size(), 0U);
    EXPECT_EQ(difference(stateAfter("_open\nc.dxf\nLIGARPECAS\nLIGARPECAS\n"), back), "");
    EXPECT_NE(printed().find("não há o que ligar"), std::string::npos) << printed();
    // Somebody moved one corner in the block of one piece.
    int corners = 0;
    stateAfter(script + "_saveas\nb.dxf\n");
    passThroughAnother("b.dxf", "c.dxf", [&](int code, std::string& value) {
        if (code == 20 && value != "0.0" && ++corners == 1)
            value = std::to_string(std::stod(value) + 1.0);
    });
    const Json edited = stateAfter("_open\nc.dxf\nLIGARPECAS\n");
    EXPECT_NE(printed().find("; 1 ficou bloco: seu desenho foi mudado."), std::string::npos)
        << printed();
    EXPECT_EQ(pecasOf(edited).size(), pecasOf(drawn).size() - 1);
}

TEST_F(Returns, TheExamplesOfTheTextOnAutomationRun) {
    EXPECT_EQ(runExamples(fs::path(HOUSE_SOURCE_DIR) / "docs/automacao.md"), 8);
    const Json rows = stateIn("obra.json")["lista_material"];
    std::map<std::string, int> pecas;
    for (const Json& row : rows) pecas[row["marca"]] = row["quantidade"];
    // Six plates at each of the eight D1: five parts between them.
    EXPECT_EQ(pecas,
              (std::map<std::string, int>{{"V1", 4}, {"D1", 8}, {"P1", 48}, {"P2", 2}, {"P3", 1}}));
    // The six plates of each of the seven D1 that are left.
    EXPECT_TRUE(textOf("corte/P1.dxf").find("P1: 42 x chapa 5 x 50 x 60") != std::string::npos);
    // 46,1 kg/m are printed: two of 5980,5 and one of 3000.
    if (has("quilos.json")) {
        EXPECT_NEAR(stateIn("quilos.json").value("W 200 x 46,1", 0.0), 46.1 * 14.961, 1e-6);
    }
}
