// SPDX-License-Identifier: MIT
// The program's own contract: options, exit codes, how lines reach whoever asks.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <utility>

namespace fs = std::filesystem;

namespace {

const fs::path kProgram = fs::path(HOUSE_BINARY_DIR) / "bin/prancheta-console";

class Console : public testing::Test {
protected:
    struct Outcome {
        int code;
        std::string out;
        std::string err;
    };

    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "prancheta-console-XXXXXX").string();
        folder = ::mkdtemp(name.data());
    }
    void TearDown() override { fs::remove_all(folder); }

    fs::path put(const std::string& name, const std::string& text) const {
        std::ofstream(folder / name, std::ios::binary) << text;
        return folder / name;
    }
    std::string text(const fs::path& name) const {
        std::ifstream in(folder / name, std::ios::binary);
        std::stringstream out;
        out << in.rdbuf();
        return out.str();
    }
    Outcome run(const std::string& arguments, const std::string& input = {}) const {
        put("entrada", input);
        const std::string command = "cd '" + folder.string() + "' && unset ZPFORJA2010 && '" +
                                    kProgram.string() + "' " + arguments +
                                    " <entrada >saida 2>erros";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, text("saida"), text("erros")};
    }

    fs::path folder;
};

/// The program on a terminal of its own, with somebody who answers.
class Terminal {
public:
    Terminal(const fs::path& program, const std::string& arguments) {
        m_child = ::forkpty(&m_screen, nullptr, nullptr, nullptr);
        if (m_child != 0) return;  // the parent, or there is no terminal to be had
        const std::string command = "exec '" + program.string() + "' " + arguments;
        ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
        std::_Exit(127);
    }
    ~Terminal() {
        ::close(m_screen);
        if (m_child > 0) {
            ::kill(m_child, SIGKILL);
            ::waitpid(m_child, nullptr, 0);
        }
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    bool works() const { return m_child > 0; }
    /// Types the keys when the question has been shown.
    void answer(const std::string& question, const std::string& keys) {
        while (m_shown.find(question, m_read) == std::string::npos)
            if (!show()) return;
        m_read = m_shown.size();
        EXPECT_EQ(::write(m_screen, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
    }
    /// Exit code; -1 when the program was ended by a signal, or still waits for something.
    int end() {
        while (show()) {
        }
        const pid_t child = std::exchange(m_child, -1);
        if (child <= 0) return -1;  // -1 would be everybody
        ::kill(child, SIGKILL);     // nothing to one that has ended
        int status = 0;
        ::waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    const std::string& shown() const { return m_shown; }
    /// Sends the signal when the text has been shown.
    void signal(const std::string& text, int number) {
        answer(text, "");
        ::kill(m_child, number);
    }

private:
    bool show() {
        pollfd waiting{m_screen, POLLIN, 0};
        char bytes[512];
        if (::poll(&waiting, 1, 10000) <= 0) return false;
        const ssize_t n = ::read(m_screen, bytes, sizeof bytes);
        if (n > 0) m_shown.append(bytes, static_cast<std::size_t>(n));
        return n > 0;
    }

    int m_screen = -1;
    pid_t m_child = -1;
    std::string m_shown;
    std::size_t m_read = 0;
};

bool has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace

TEST_F(Console, HelpAndVersion) {
    for (const char* asked : {"--ajuda", "--help", "-h"}) {
        const Outcome help = run(asked);
        EXPECT_EQ(help.code, 0);
        for (const char* word : {"Uso", "--roteiro", "--salvar", "--registro", "--estado",
                                 "--instalacao", "--modulo", "--sem-arx", "--quieto"})
            EXPECT_TRUE(has(help.out, word)) << word;
    }
    for (const char* asked : {"--versao", "--version", "-v"}) {
        const Outcome version = run(asked);
        EXPECT_EQ(version.code, 0);
        EXPECT_TRUE(has(version.out, "prancheta-console "));
    }
}

TEST_F(Console, WrongUsageIsTwo) {
    put("a.dxf", "a");
    fs::create_symlink("a.dxf", folder / "b.dxf");
    for (const char* arguments :
         {"--nada", "a.dxf b.dxf", "-r", "-o ''", "a.dxf --registro a.dxf", "a.dxf --pdf ./b.dxf",
          "-r a.dxf -o b.dxf", "-o c.dxf --estado c.dxf", "--svg c --png c"}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.code, 2) << arguments;
        EXPECT_TRUE(has(outcome.err, "--ajuda")) << outcome.err;
        EXPECT_FALSE(has(outcome.err, "The following")) << "English: " << outcome.err;
    }
    EXPECT_EQ(text("a.dxf"), "a");
    EXPECT_EQ(run("--estado /dev/null --registro /dev/null").code, 0);
}

TEST_F(Console, OptionsTakeTheirValueAndNoMore) {
    put("a.dxf", "  0\nSECTION\n  2\nENTITIES\n  0\nENDSEC\n  0\nEOF\n");
    const std::string bin = kProgram.parent_path().string();
    const std::string modules =
        "--modulo '" + bin + "/ZpObjects18.arx' --modulo '" + bin + "/ZpGBarraApp18.arx' ";
    const Outcome outcome = run("--sem-modulos " + modules + "a.dxf", "_qsave\n");
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_TRUE(has(text("a.dxf"), "AC1015")) << "the drawing was opened, and saved again";
    for (const char* option : {"-o", "--salvar"}) {
        const Outcome twice = run("-o a " + std::string(option) + " b");
        EXPECT_EQ(twice.code, 2);
        EXPECT_TRUE(has(twice.err, "a opção --salvar foi repetida")) << twice.err;
    }
    EXPECT_TRUE(has(run("-o").err, "falta o valor da opção --salvar"));
}

TEST_F(Console, FilesThatCannotBeUsedAreThree) {
    EXPECT_EQ(run("-r none.txt").code, 3);
    EXPECT_EQ(run("none.dxf").code, 3);
    EXPECT_EQ(run("-o missing/out.dxf").code, 3);
    EXPECT_EQ(run("--estado missing/state.json").code, 3);
    EXPECT_EQ(run("--registro missing/log.jsonl").code, 3);
    for (const char* none : {"--instalacao none", "--instalacao entrada"}) {
        const Outcome outcome = run(none);
        EXPECT_EQ(outcome.code, 3) << none;
        EXPECT_TRUE(has(outcome.err, "não é uma pasta")) << outcome.err;
    }
    const Outcome module = run("--modulo none.arx");
    EXPECT_EQ(module.code, 3);
    EXPECT_TRUE(has(module.err, "não existe")) << module.err;
    // The program's own modules are looked for beside it.
    fs::copy_file(kProgram, folder / "prancheta-console");
    fs::create_symlink(kProgram.parent_path() / "libprancheta.so", folder / "libprancheta.so");
    const Outcome alone = run("--ajuda >/dev/null; ./prancheta-console");
    EXPECT_EQ(alone.code, 3);
    EXPECT_TRUE(has(alone.err, "ZpObjects18.arx: o módulo não pôde ser carregado")) << alone.err;
    put("cut.dxf", "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  8\n0\n 10\n1.0\n 20\n");
    const Outcome cut = run("cut.dxf -o cut.dxf");
    EXPECT_EQ(cut.code, 3);
    EXPECT_TRUE(has(cut.err, "cut.dxf")) << cut.err;
    EXPECT_EQ(text("cut.dxf").substr(0, 12), "  0\nSECTION\n")
        << "a file that could not be read is left alone";
}

TEST_F(Console, NewDrawingsStartFromATemplate) {
    const fs::path source = HOUSE_SOURCE_DIR;
    const std::string make = "'" + (source / "tools/modelo.sh").string() + "' '" +
                             kProgram.string() + "' '" + (folder / "feito.dxf").string() + "'";
    ASSERT_EQ(std::system(make.c_str()), 0);
    EXPECT_EQ(text("feito.dxf"), text(source / "instalacao/modelo.dxf"));
    const std::string state = "--sem-modulos --estado e.json";
    for (const char* script : {"", "_line\n0,0\n9,9\n\n_new\n_y\n"}) {
        EXPECT_EQ(run("--modelo feito.dxf " + state, script).code, 0);
        EXPECT_TRUE(has(text("e.json"), "\"DIMSCALE\": 20")) << script;
        EXPECT_TRUE(has(text("e.json"), "\"entidades\": []")) << script;
    }
    EXPECT_EQ(run(state).code, 0);
    EXPECT_TRUE(has(text("e.json"), "\"DIMSCALE\": 1"));
    EXPECT_FALSE(has(text("e.json"), "\"DIMSCALE\": 20"));
    EXPECT_EQ(run("--modelo nenhum.dxf").code, 3);
}

TEST_F(Console, WhatWasRepairedWhileReadingIsTold) {
    put("a.dxf",
        "  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  8\nVigas\n 10\n0\n 20\n0\n 11\n5\n 21\n5\n"
        "  0\nENDSEC\n  0\nEOF\n");
    const Outcome outcome = run("a.dxf");
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_EQ(outcome.err, "");
    const std::size_t told = outcome.out.find("\"Vigas\" não tem registro; foi criado um\n");
    ASSERT_NE(told, std::string::npos) << outcome.out;
    EXPECT_LT(told, outcome.out.find("Comando:"));
    // As OPEN tells it.
    const Outcome opened = run("", "_open\na.dxf\n");
    EXPECT_TRUE(has(opened.out, "\"Vigas\" não tem registro; foi criado um\n")) << opened.out;
}

TEST_F(Console, ControlCharactersOfADrawingSteerNothing) {
    put("a.dxf",
        "0\nSECTION\n2\nENTITIES\n0\nTEXT\n8\nCam\x1B[31mada\n10\n0\n20\n0\n40\n5\n1\n"
        "a\x1B]0;x\x07 b\x9Bz\n0\nENDSEC\n0\nEOF\n");
    fs::rename(folder / "a.dxf", folder / "a<&\x1B.dxf");
    const Outcome outcome = run("'a<&\x1B.dxf' --svg a.svg", "_list\n_all\n\n");
    fs::rename(folder / "a<&\x1B.dxf", folder / "a.dxf");
    EXPECT_TRUE(has(outcome.out, "Cam^[[31mada")) << outcome.out;
    for (const std::string& all : {outcome.out, outcome.err, run("--verifica a.dxf").out})
        EXPECT_EQ(all.find_first_of("\x1B\x07\x7F"), std::string::npos) << all;
    const std::string svg = text("a.svg");
    EXPECT_TRUE(has(svg, "<title>a&lt;&amp;^[</title>"));
    EXPECT_EQ(svg.find("<title>"), svg.rfind("<title>"));
    for (const char c : svg)
        EXPECT_TRUE(static_cast<unsigned char>(c) >= 0x20 || c == '\n' || c == '\t');
}

TEST_F(Console, LayerNamesAreThoseThatTheExaminerTakes) {
    const Outcome outcome =
        run("-o a.dxf", "_-layer\n_make\nA,B\n_make\nA B\n\n_line\n0,0\n9,9\n\n");
    EXPECT_TRUE(has(outcome.err, ":3: O nome de camada \"A,B\" é inválido.")) << outcome.err;
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(run("--verifica a.dxf").code, 0);
    EXPECT_TRUE(has(text("a.dxf"), "\nA B\n"));
}

TEST_F(Console, PlotsWhatWasDrawn) {
    if (!fs::exists(kProgram.parent_path() / "libprancheta-plot.so"))
        GTEST_SKIP() << "compilado sem a plotagem";
    const std::string script = "_line\n0,0\n300,40\n\n";
    const Outcome outcome = run("--pdf a.pdf --svg a.svg --png a.png", script);
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(text("a.pdf").substr(0, 5), "%PDF-");
    EXPECT_TRUE(has(text("a.pdf"), "/MediaBox [ 0 0 841.8898 595.2756 ]")) << "A4, lying";
    EXPECT_TRUE(has(text("a.svg"), "width=\"297mm\" height=\"210mm\""));
    EXPECT_EQ(text("a.png").substr(1, 3), "PNG");
    const Outcome missing = run("--pdf missing/a.pdf --png b.png", script);
    EXPECT_EQ(missing.code, 3);
    EXPECT_TRUE(has(missing.err, "missing/a.pdf")) << missing.err;
    EXPECT_EQ(text("b.png").substr(1, 3), "PNG") << "one failure does not keep the others";
    for (const char* drawing : {"um.dxf", "dois.dxf"})
        EXPECT_EQ(run("-o " + std::string(drawing), script).code, 0);
    const Outcome several = run("um.dxf dois.dxf --pdf jogo.pdf");
    EXPECT_EQ(several.code, 0) << several.err;
    for (const char* mark : {"(um - Modelo)", "(dois - Modelo)"})
        EXPECT_TRUE(has(text("jogo.pdf"), mark)) << mark;
    const Outcome without = run("um.dxf dois.dxf --layout todos --pdf nada.pdf");
    EXPECT_EQ(without.code, 3);
    EXPECT_TRUE(has(without.err, "um.dxf")) << without.err;
    EXPECT_FALSE(fs::exists(folder / "nada.pdf"));
    EXPECT_EQ(run("um.dxf dois.dxf --pdf a.pdf -o c.dxf").code, 2);
}

/// The copies that do not hold all of a drawing, by the option and by the command.
TEST_F(Console, CopiesForMachinesAndOfTheModelAlone) {
    const std::string script =
        "_-layer\n_m\nPeças de aço\n\nperfilu\nh=200\nb=75\nt=3\ndimensionar=1\naccept\n0,0\n0\n"
        "_xline\n0,0\n10,10\n\n_layout\n_s\nLayout1\n_line\n7,7\n55,77\n\n_layout\n_s\nModel\n";
    EXPECT_EQ(run("-o a.dxf", script).code, 0);
    const Outcome copies = run("a.dxf --estado e.json",
                               "_saveas\n_v\nr12\na.dxf\nmaquina.dxf\n_saveas\n_v\nm\n\n_qsave\n");
    EXPECT_EQ(copies.code, 1) << "its own file is refused";
    EXPECT_TRUE(has(copies.err, "dê outro nome")) << copies.err;
    for (const char* part :
         {"linhas sem fim (1)", "objetos dos layouts (1)", "Peças de aço: PECAS_DE_ACO"})
        EXPECT_TRUE(has(copies.out, part)) << copies.out;
    EXPECT_EQ(run("-o b.dxf --formato r12", script).code, 0);
    EXPECT_EQ(text("b.dxf"), text("maquina.dxf"));
    for (const char* part : {"\nINSERT\n", "\nLWPOLYLINE\n", "\nAcDb", "\n420\n"})
        EXPECT_FALSE(has(text("b.dxf"), part)) << part;
    EXPECT_TRUE(has(text("b.dxf"), "\nPOLYLINE\n"));
    for (const char* file : {"a.dxf", "b.dxf", "a-modelo.dxf"})
        EXPECT_EQ(run("--verifica " + std::string(file)).code, 0) << file;
    EXPECT_EQ(run("a-modelo.dxf --estado e.json").code, 0);
    EXPECT_TRUE(has(text("e.json"), "ZpUDobrado")) << "pieces stay pieces";
    EXPECT_FALSE(has(text("e.json"), "Layout1"));
    EXPECT_EQ(run("a.dxf -o a.dxf --formato r12").code, 2);
}

TEST_F(Console, ScriptsOfAnySystem) {
    put("s.txt", "\xEF\xBB\xBF; comment\r\n  _line  \r\n0,0\r\n3,4\r\n\r\n");
    const Outcome outcome = run("-r s.txt --estado e.json");
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_TRUE(has(text("e.json"), "AcDbLine"));
    const Outcome piped = run("--estado e.json", "_circle\n0,0\n5\n");
    EXPECT_EQ(piped.code, 0) << piped.err;
    EXPECT_TRUE(has(text("e.json"), "AcDbCircle"));
}

TEST_F(Console, TheEndOfAScriptIsEscForWhoeverStillAsks) {
    const Outcome outcome = run("--estado e.json --registro r.jsonl", "_line\n0,0\n3,4\n");
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_TRUE(has(text("e.json"), "AcDbLine")) << "what was drawn stays";
    EXPECT_TRUE(has(text("r.jsonl"), "\"status\":-5002"));
}

TEST_F(Console, CommandsInsideOneAnotherWithoutEndAreRefused) {
    std::string script = "_line\n";
    for (int i = 0; i < 20000; ++i) script += "'_zoom\n";
    const Outcome outcome = run("", script);
    EXPECT_GE(outcome.code, 0) << "it ended by itself";
    EXPECT_TRUE(has(outcome.out + outcome.err, "comandos demais um dentro do outro"));
}

TEST_F(Console, AnUnknownCommandIsReportedWithItsLineAndTheScriptGoesOn) {
    const Outcome outcome = run("--estado e.json", "; one\nnada\n_line\n0,0\n3,4\n\n");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(has(outcome.err, ":2: Comando desconhecido \"NADA\"")) << outcome.err;
    EXPECT_TRUE(has(text("e.json"), "AcDbLine"));
}

TEST_F(Console, ARefusedAnswerIsAnErrorOfTheScriptThatGoesOn) {
    struct Case {
        const char* script;
        const char* error;  ///< none: the script went well
    };
    for (const Case& each :
         {Case{"_line\n0,0\nbobagem\n3,4\n\n", ":3: Ponto inválido."},
          Case{"_circle\n0,0\n;\nx\n5\n", ":4: Requer distância"},
          Case{"osmode\n1.5\n0\n_circle\n0,0\n5\n", ":2: Requer um inteiro"},
          Case{"perfilu\nh=200\nb=75\nt=3\naccept\nnada\n9,9\n0\n", ":6: Ponto inválido."},
          // Enter where it is no answer, Esc, the end of the file.
          Case{"_circle\n\n0,0\n\n5\n", nullptr}, Case{"_circle\n0,0\n5\n_line\n^C\n", nullptr},
          Case{"_circle\n0,0\n5\n_line\n0,0\n", nullptr}}) {
        const Outcome outcome = run("--estado e.json", each.script);
        EXPECT_EQ(outcome.code, each.error != nullptr ? 1 : 0) << each.script << outcome.err;
        EXPECT_TRUE(has(outcome.err, each.error != nullptr ? each.error : "")) << outcome.err;
        EXPECT_EQ(outcome.err.empty(), each.error == nullptr) << outcome.err;
        EXPECT_TRUE(has(text("e.json"), "\"handle\"")) << "it was drawn: " << each.script;
    }
}

TEST_F(Console, AnOutputInPlaceOfTheTranscript) {
    struct Case {
        const char* arguments;
        const char* begins;
        const char* holds;
    };
    const char* const script = "_circle\n0,0\n5\n";
    for (const Case& each :
         {Case{"-o -", "0\nSECTION", "CIRCLE"}, Case{"--salvar=-", "0\nSECTION", "EOF\n"},
          Case{"--estado -", "{", "AcDbCircle"}, Case{"--estado /dev/stdout", "{", "AcDbCircle"},
          Case{"--registro -", "{\"ev\":", "\"cria\""}, Case{"--quieto", "", ""}}) {
        const Outcome outcome = run(each.arguments, script);
        EXPECT_EQ(outcome.code, 0) << outcome.err;
        EXPECT_TRUE(outcome.out.starts_with(each.begins)) << each.arguments << outcome.out;
        EXPECT_TRUE(has(outcome.out, each.holds)) << each.arguments;
        EXPECT_EQ(outcome.out.empty(), each.holds[0] == '\0') << each.arguments;
        EXPECT_FALSE(has(outcome.out, "Comando:")) << each.arguments;
    }
    // One after the other, behind what stood there; errors have their own way.
    const std::string two = "cd '" + folder.string() + "' && echo antes >junto && '" +
                            kProgram.string() + "' -o - --estado - <entrada >>junto";
    ASSERT_EQ(std::system(two.c_str()), 0);
    const std::string both = text("junto");
    EXPECT_TRUE(both.starts_with("antes\n0\nSECTION")) << both.substr(0, 80);
    EXPECT_TRUE(has(both, "EOF\n{\n"));
    EXPECT_TRUE(has(run("--quieto", "bobagem\n").err, ":1: Comando desconhecido"));
    EXPECT_FALSE(fs::exists(folder / "-"));
}

TEST_F(Console, ADrawingComesThroughAPipe) {
    ASSERT_EQ(run("-o a.dxf", "_circle\n0,0\n5\n").code, 0);
    ASSERT_EQ(::mkfifo((folder / "cano").c_str(), 0600), 0);
    for (const char* arguments : {"cano -o b.dxf", "--verifica cano", "--confere cano"}) {
        const std::string feed = "cd '" + folder.string() + "' && cat a.dxf >cano &";
        ASSERT_EQ(std::system(feed.c_str()), 0);
        // It has no file to go back to: QSAVE asks for one.
        const Outcome outcome = run(arguments, "_qsave\nc.dxf\n");
        EXPECT_EQ(outcome.code, 0) << outcome.err;
    }
    for (const char* name : {"b.dxf", "c.dxf"}) EXPECT_TRUE(has(text(name), "CIRCLE")) << name;
    EXPECT_TRUE(fs::is_fifo(folder / "cano"));
}

TEST_F(Console, ChecksTheJobOfADrawing) {
    // Two U over each other by 200 mm; without a list they need no marks.
    const std::string pieces =
        "perfilu\nh=200\nb=75\nt=3.00\nvista0=0\nOutraVista\nl=1000\naccept\naccept\n0,0\n0\n"
        "_copy\n_last\n\n0,0\n800,0\n\n";
    ASSERT_EQ(run("-o a.dxf", pieces).code, 0);
    const Outcome faulty = run("--confere a.dxf");
    EXPECT_EQ(faulty.code, 1) << faulty.err;
    EXPECT_TRUE(has(faulty.out, "sobrepõem ao longo do eixo por 200 mm.")) << faulty.out;
    EXPECT_TRUE(has(faulty.out, "\n1 falha, 2 avisos.\n")) << faulty.out;
    EXPECT_EQ(faulty.out.find("Aguarde"), std::string::npos) << "the findings alone";
    EXPECT_EQ(run("a.dxf -o b.dxf", "_erase\n_last\n\n").code, 0);
    const Outcome sound = run("--confere b.dxf");
    EXPECT_EQ(sound.code, 0) << sound.out;
    EXPECT_TRUE(has(sound.out, "\nNenhuma falha encontrada; 1 aviso.\n")) << sound.out;
    EXPECT_EQ(run("--confere nenhum.dxf").code, 3);
    const Outcome alone = run("--sem-modulos --confere a.dxf");
    EXPECT_EQ(alone.code, 3);
    EXPECT_TRUE(has(alone.err, "--sem-modulos")) << alone.err;
    // What is cut goes to the shop when nothing is found in it, or when it is forced.
    EXPECT_EQ(run("a.dxf --chapas corte").code, 1) << "nothing is in a list";
    const std::string listed =
        "peca\nU 200x75x3 L=1000 n=1\n0,0\n0\npeca\nU 200x75x3 L=1000\n800,0\n0\n";
    const Outcome refused = run("-o c.dxf --chapas corte", listed);
    EXPECT_EQ(refused.code, 1);
    EXPECT_TRUE(has(refused.err, "P1: CONFERIR aponta 1 falha ")) << refused.err;
    EXPECT_FALSE(fs::exists(folder / "corte"));
    const Outcome forced = run("c.dxf --forcar --chapas corte");
    EXPECT_EQ(forced.code, 0) << forced.err;
    EXPECT_TRUE(has(forced.out, "1 marca, 1 chapa em corte.\n")) << forced.out;
    EXPECT_TRUE(has(text("corte/P1.dxf"), "P1: 1 x chapa 3 x 340,1 x 1000"));
    EXPECT_EQ(run("c.dxf --forcar --chapas c.dxf/corte").code, 3);
    EXPECT_EQ(run("c.dxf --forcar --chapas corte").code, 0) << "files of its kind are replaced";
    // A drawing that goes by the name of a mark is none, whether it is the one that is open or not.
    fs::copy_file(folder / "c.dxf", folder / "P1.dxf");
    const std::string drawing = text("P1.dxf");
    const Outcome inTheWay = run("P1.dxf --forcar --chapas .");
    EXPECT_EQ(inTheWay.code, 1);
    EXPECT_TRUE(has(inTheWay.err + inTheWay.out, "P1.dxf já existe e não é")) << inTheWay.err;
    EXPECT_TRUE(text("P1.dxf") == drawing);
}

TEST_F(Console, ExaminesCatalogues) {
    const Outcome sound = run("", "catalogos\n");
    EXPECT_EQ(sound.code, 0) << sound.err;
    EXPECT_TRUE(has(sound.out, "\nNenhuma falha encontrada; ")) << sound.out;
    fs::create_directory(folder / "bitolas");
    put("bitolas/pu.lst", "50\t25\t2.00\n");
    EXPECT_EQ(run("--catalogos bitolas").code, 0) << "held against the installation's tables";
    put("bitolas/pu.lst", "50\t25\n");
    const Outcome faulty = run("--catalogos bitolas");
    EXPECT_EQ(faulty.code, 1) << faulty.err;
    EXPECT_TRUE(has(faulty.out, "\npu.lst, linha 1 (50 25): A linha tem 2 colunas")) << faulty.out;
    EXPECT_TRUE(has(faulty.out, "\n1 falha, ")) << faulty.out;
    EXPECT_EQ(faulty.out.find("Aguarde"), std::string::npos) << "the findings alone";
    for (const char* other : {"nenhuma", "bitolas/pu.lst", ".", "bitolas --sem-modulos"}) {
        const Outcome refused = run(std::string("--catalogos ") + other);
        EXPECT_EQ(refused.code, 3) << other;
        EXPECT_FALSE(refused.err.empty()) << other;
    }
}

TEST_F(Console, AScriptOfOthersLoadsNoStrangeModule) {
    put("a.scr", "_arx _l " + (folder / "estranho.arx").string() + "\n");
    fs::copy_file(kProgram.parent_path() / "sonda_base.arx", folder / "estranho.arx");
    // The line behind the script is nobody's answer.
    const std::string script = "_script\na.scr\n_circle\n0,0\n5\n";
    const std::string named = " --modulo estranho.arx ";
    const Outcome refused = run("--sem-modulos --estado e.json", script);
    EXPECT_EQ(refused.code, 1);
    EXPECT_TRUE(has(refused.err, "estranho.arx: o módulo foi recusado")) << refused.err;
    EXPECT_TRUE(has(text("e.json"), "AcDbCircle"));
    EXPECT_EQ(run("--sem-modulos" + named, script).code, 0);
    EXPECT_EQ(run("--sem-modulos --sem-arx", "arx\n_l\nestranho.arx\n").code, 1);
    EXPECT_EQ(run("--sem-modulos --sem-arx", "arx\n_l\nZpObjects18.arx\n").code, 0);
}

TEST_F(Console, TheShippedInstallationServesWhenNothingElseIsNamed) {
    const Outcome outcome = run("--registro r.jsonl", "perfilu\ncancel\n");
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_TRUE(has(text("r.jsonl"),
                    "\"nome\":\"pu_geracao\",\"arquivo\":\"perfis.dcl\",\"resultado\":5100"));
}

TEST_F(Console, APromptBeginsItsLineWhateverWasWrittenBefore) {
    fs::create_directory(folder / "vazia");
    const Outcome outcome = run("--instalacao vazia", "perfilu\n");
    EXPECT_TRUE(has(outcome.out, "Erro ao executar função\nComando: ")) << outcome.out;
}

TEST_F(Console, TheInterruptKeyOfATerminalIsEsc) {
    Terminal terminal(kProgram, "--sem-modulos --estado '" + (folder / "e.json").string() + "'");
    if (!terminal.works()) GTEST_SKIP() << "this machine has no pseudo-terminals";
    terminal.answer("Comando:", "_line\n");
    terminal.answer("ponto", "0,0\n");
    terminal.answer("ponto", "3,4\n");
    terminal.answer("ponto", "\x03");
    terminal.answer("Comando:", "\x03");
    terminal.answer("Comando:", "_circle\n");
    terminal.answer("central", "0,0\n");
    terminal.answer("raio", "5\n");
    terminal.answer("Comando:", "\x04");
    EXPECT_EQ(terminal.end(), 0) << terminal.shown();
    EXPECT_TRUE(has(text("e.json"), "AcDbLine"));
    EXPECT_TRUE(has(text("e.json"), "AcDbCircle"));
}

TEST_F(Console, LongWorkTellsATerminalWhereItIs) {
    ASSERT_EQ(::mkfifo((folder / "cano").c_str(), 0600), 0);
    ASSERT_EQ(run("-o a.dxf", "_circle\n0,0\n5\n").code, 0);
    const auto feed = [&] { std::ofstream(folder / "cano") << text("a.dxf"); };
    ::setenv("TERM", "xterm", 1);
    const std::string pipe = "'" + (folder / "cano").string() + "'";
    Terminal terminal(kProgram, "--sem-modulos --verifica " + pipe);
    if (!terminal.works()) GTEST_SKIP() << "this machine has no pseudo-terminals";
    terminal.answer("examinando", "");
    feed();
    EXPECT_EQ(terminal.end(), 0) << terminal.shown();
    EXPECT_TRUE(has(terminal.shown(), "\r\x1b[K\r")) << "the line is gone at the end";
    // Ended by its key, it leaves nothing half done.
    const std::string saved = (folder / "b.dxf").string();
    Terminal broken(kProgram, "--sem-modulos --quieto " + pipe + " -o '" + saved + "'");
    broken.answer("abrindo", "\x03");
    EXPECT_EQ(broken.end(), -1);
    EXPECT_FALSE(fs::exists(saved));
    // As long, but nobody sees it.
    std::thread late([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(800));
        feed();
    });
    const Outcome unseen = run("--sem-modulos --verifica cano");
    late.join();
    EXPECT_EQ(unseen.code, 0);
    EXPECT_EQ(unseen.err, "");
}

TEST_F(Console, WhoIsToldToEndSavesWhatThereIs) {
    ASSERT_EQ(::mkfifo((folder / "cano").c_str(), 0600), 0);
    // Both ways, so that it has no end.
    const int pipe = ::open((folder / "cano").c_str(), O_RDWR | O_CLOEXEC);
    const std::string script = "_circle\n0,0\n5\n_line\n0,0\n";
    struct Case {
        int signal;
        const char* input;  ///< none: typed
    };
    for (const Case& each : {Case{SIGTERM, "cano"}, Case{SIGHUP, "cano"}, Case{SIGINT, "cano"},
                             Case{SIGTERM, nullptr}, Case{SIGHUP, nullptr}}) {
        fs::remove(folder / "a.dxf");
        std::string arguments = "--sem-modulos -o '" + (folder / "a.dxf").string() + "'";
        if (each.input != nullptr) arguments += " <'" + (folder / each.input).string() + "'";
        Terminal terminal(kProgram, arguments);
        if (!terminal.works()) GTEST_SKIP() << "this machine has no pseudo-terminals";
        const auto size = static_cast<ssize_t>(script.size());
        if (each.input == nullptr) {
            terminal.answer("Comando:", script);
        } else {
            ASSERT_EQ(::write(pipe, script.data(), script.size()), size);
        }
        terminal.signal("primeiro ponto: ", each.signal);
        EXPECT_EQ(terminal.end(), 128 + each.signal) << terminal.shown();
        EXPECT_TRUE(has(terminal.shown(), "encerrado pelo sinal")) << terminal.shown();
        EXPECT_TRUE(has(text("a.dxf"), "AcDbCircle")) << each.signal;
    }
    ::close(pipe);
}

TEST_F(Console, WithoutModulesTheirCommandsAreUnknown) {
    EXPECT_EQ(run("--sem-modulos", "perfilu\n").code, 1);
    EXPECT_EQ(run("--sem-modulos", "_line\n0,0\n1,1\n\n").code, 0);
}

TEST_F(Console, ModulesAreUnloadedAndLoadedAgain) {
    const Outcome outcome =
        run("--registro r.jsonl",
            "arx\n_u\nZpPerfis18.arx\nperfilu\narx\n_l\nZpPerfis18.arx\nperfilu\ncancel\n");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_TRUE(has(outcome.err, ":4: Comando desconhecido \"PERFILU\"")) << outcome.err;
    EXPECT_TRUE(has(text("r.jsonl"), "\"nome\":\"pu_geracao\"")) << outcome.out;
}
