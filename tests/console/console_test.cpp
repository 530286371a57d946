// SPDX-License-Identifier: MIT
// The program's own contract: options, exit codes, how lines reach whoever asks.
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
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
    const Outcome help = run("--ajuda");
    EXPECT_EQ(help.code, 0);
    for (const char* word :
         {"Uso", "--roteiro", "--salvar", "--registro", "--estado", "--instalacao", "--modulo"})
        EXPECT_TRUE(has(help.out, word)) << word;
    const Outcome version = run("-v");
    EXPECT_EQ(version.code, 0);
    EXPECT_TRUE(has(version.out, "prancheta-console "));
}

TEST_F(Console, WrongUsageIsTwo) {
    for (const char* arguments : {"--nada", "a.dxf b.dxf", "-r"}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.code, 2) << arguments;
        EXPECT_TRUE(has(outcome.err, "--ajuda")) << outcome.err;
        EXPECT_FALSE(has(outcome.err, "The following")) << "English: " << outcome.err;
    }
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
    for (const char c : svg)
        EXPECT_TRUE(static_cast<unsigned char>(c) >= 0x20 || c == '\n' || c == '\t');
}

TEST_F(Console, LayerNamesAreThoseThatTheExaminerTakes) {
    const Outcome outcome =
        run("-o a.dxf", "_-layer\n_make\nA,B\n_make\nA B\n\n_line\n0,0\n9,9\n\n");
    EXPECT_TRUE(has(outcome.out, "O nome de camada \"A,B\" é inválido.")) << outcome.out;
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
    EXPECT_TRUE(has(text("a.pdf"), "/MediaBox [0 0 841.8898 595.2756]")) << "A4, lying";
    EXPECT_TRUE(has(text("a.svg"), "width=\"297mm\" height=\"210mm\""));
    EXPECT_EQ(text("a.png").substr(1, 3), "PNG");
    const Outcome missing = run("--pdf missing/a.pdf --png b.png", script);
    EXPECT_EQ(missing.code, 3);
    EXPECT_TRUE(has(missing.err, "missing/a.pdf")) << missing.err;
    EXPECT_EQ(text("b.png").substr(1, 3), "PNG") << "one failure does not keep the others";
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
