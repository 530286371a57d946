// SPDX-License-Identifier: MIT
// Arguments, help and usage errors in Portuguese.
#include "prancheta/console/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>

#include "prancheta/base/file.h"
#include "prancheta/base/library.h"
#include "prancheta/base/text.h"
#include "prancheta/base/utf8_path.h"

namespace prancheta::console {
namespace {

/// The library's messages are English: each kind of error has a text of its own here.
std::string usageError(const CLI::App& app, const CLI::ParseError& error) {
    const std::string detail = error.what();
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr)
        return "argumento desconhecido (" + detail.substr(detail.find(": ") + 2) + ")";
    if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) {
        const std::string name = detail.substr(0, detail.find(':'));
        const CLI::Option* const option = app.get_option_no_throw(name);
        if (option != nullptr && option->count() > 1) return "a opção " + name + " foi repetida";
        return "falta o valor da opção " + name;
    }
    return "opções que não combinam";
}

void translate(CLI::App& app) {
    const auto formatter = app.get_formatter();
    formatter->label("Usage", "Uso");
    formatter->label("OPTIONS", "opções");
    formatter->label("Positionals", "Argumentos");
    formatter->label("POSITIONALS", "argumentos");
    formatter->label("TEXT", "TEXTO");
    formatter->column_width(34);
}

/// The transcript stays away from what is written in its place.
void findOutputs(Options& options) {
    std::vector<std::string*> outputs = {&options.save, &options.log, &options.state};
    for (std::string& file : options.plots) outputs.push_back(&file);
    for (std::string* const file : outputs) {
        if (*file == "-") *file = standardOutput().string();
        if (!file->empty() && isStandardOutput(pathFromUtf8(*file))) options.transcript = false;
    }
}

constexpr const char* kPlotOptions[][2] = {
    {"--pdf", "ARQUIVO.pdf"}, {"--svg", "ARQUIVO.svg"}, {"--png", "ARQUIVO.png"}};

/// Two options that would have one file, of which one is written: whoever reads it later finds
/// something else. A drawing may be saved over itself; what is no file takes bytes from everybody.
std::string clashOf(const Options& options) {
    namespace fs = std::filesystem;
    struct Named {
        std::string option;
        bool written;
        fs::path file;
    };
    std::vector<Named> files;
    const auto add = [&files](const char* option, bool written, const std::string& name) {
        std::error_code error;
        const fs::path file = name.empty() || name == "-" ? fs::path() : pathFromUtf8(name);
        const bool special = fs::exists(file, error) && !fs::is_regular_file(file, error);
        if (file.empty() || special || (written && isStandardOutput(file))) return;
        files.push_back({option, written, fs::weakly_canonical(file, error)});
    };
    add("--salvar", true, options.save);
    add("o desenho", false, options.drawing);
    for (const std::string& drawing : options.otherDrawings) add("um desenho", false, drawing);
    add("--modelo", false, options.model);
    add("--roteiro", false, options.script);
    add("--pecas", false, options.pieces);
    add("--registro", true, options.log);
    add("--estado", true, options.state);
    add("--chapas", true, options.cutFiles);
    for (std::size_t i = 0; i < options.plots.size(); ++i)
        add(kPlotOptions[i][0], true, options.plots[i]);
    for (std::size_t i = 0; i < files.size(); ++i)
        for (std::size_t k = i + 1; k < files.size(); ++k) {
            // A copy that does not hold all of it must not replace it.
            const bool whole = options.format != "r12" && options.format != "modelo";
            const bool ownDrawing =
                whole && files[i].option == "--salvar" && files[k].option == "o desenho";
            std::error_code error;
            if ((files[i].written || files[k].written) && !ownDrawing &&
                (files[i].file == files[k].file ||
                 fs::equivalent(files[i].file, files[k].file, error)))
                return files[i].option + " e " + files[k].option + " são o mesmo arquivo";
        }
    return {};
}

/// Why the options cannot be meant; empty when they can.
std::string refusalOf(const CLI::App& app, const Options& options) {
    for (const CLI::Option* const option : app.get_options())
        for (const std::string& value : option->results())
            if (value.empty()) return "o valor de " + option->get_name() + " está vazio";
    const std::string_view format = options.format;
    if (!options.compare.empty() && !formOf(options.format))
        return "o formato de --compara é texto, csv ou json, e não " + options.format;
    if (options.compare.empty() && !format.empty() && format != "r12" && format != "2000" &&
        format != "2018" && format != "modelo")
        return "o formato é r12, 2000, 2018 ou modelo; com --compara, texto, csv ou json";
    // Several drawings are one PDF and nothing else.
    const bool onlyPdf = !options.plots[0].empty() && options.plots[1].empty() &&
                         options.plots[2].empty() && options.script == "-" &&
                         options.save.empty() && options.state.empty() && options.pieces.empty() &&
                         options.check.empty() && options.catalogues.empty() &&
                         options.compare.empty() && options.cutFiles.empty();
    if (!options.otherDrawings.empty() && !onlyPdf)
        return "vários desenhos servem só a --pdf, que faz um arquivo de todos, sem roteiro";
    return clashOf(options);
}

}  // namespace

std::optional<protocol::ComparisonForm> formOf(const std::string& name) {
    using enum protocol::ComparisonForm;
    if (name.empty()) return Text;
    for (const auto& [known, form] : {std::pair("texto", Text), {"csv", Csv}, {"json", Json}})
        if (name == known) return form;
    return {};
}

std::optional<Options> readOptions(int argc, char** argv, int& exitCode) {
    Options options;
    bool version = false;
    bool noModules = false;
    bool defaultOnly = false;
    bool quiet = false;
    bool noLayers = false;
    CLI::App app("Prancheta sem janela: executa um roteiro de comandos num desenho.",
                 "prancheta-console");
    translate(app);
    app.option_defaults()->group("Opções");
    app.set_help_flag("-h,--ajuda,--help", "mostra esta ajuda")->group("Opções");
    app.add_flag("-v,--versao,--version", version, "mostra a versão");
    app.footer(
        "Num ARQUIVO a gravar, - é a saída padrão; o diálogo com o roteiro não é mostrado então.");
    std::vector<std::string> drawings;
    app.add_option("desenho", drawings,
                   "desenho a abrir (DXF); com --pdf, vários são plotados num só arquivo")
        ->type_name("ARQUIVO.dxf");
    app.add_option("--modelo", options.model, "de onde começam o desenho vazio e os que NOVO cria")
        ->type_name("ARQUIVO.dxf");
    app.add_option("-r,--roteiro", options.script, "roteiro; - lê a entrada padrão")
        ->type_name("ARQUIVO");
    app.add_option("-o,--salvar", options.save, "salva o desenho no fim")->type_name("ARQUIVO.dxf");
    app.add_option(
           "--formato", options.format,
           "com --salvar: r12 (o que se vê do modelo, para máquinas de corte), 2000, 2018 ou "
           "modelo (sem os layouts); com --compara: texto, csv ou json")
        ->type_name("FORMATO");
    app.add_option("--registro", options.log, "registro de eventos, um objeto JSON por linha")
        ->type_name("ARQUIVO.jsonl");
    app.add_option("--estado", options.state, "estado final do desenho")->type_name("ARQUIVO.json");
    app.add_option("--verifica", options.verify, "examina um arquivo DXF com rigor e termina")
        ->type_name("ARQUIVO.dxf");
    app.add_option("--confere", options.check,
                   "confere peças, lista e cotas de um desenho e termina")
        ->type_name("ARQUIVO.dxf");
    app.add_option("--compara", options.compare,
                   "diz o que mudou, peça por peça, do primeiro desenho para o segundo e termina")
        ->type_name("ANTES.dxf DEPOIS.dxf")
        ->expected(2);
    app.add_option("--catalogos", options.catalogues,
                   "confere as listas e tabelas de bitolas de uma pasta de instalação e termina")
        ->type_name("PASTA");
    app.add_option("--pecas", options.pieces, "desenha as peças de uma tabela antes do roteiro")
        ->type_name("ARQUIVO.csv");
    app.add_flag("--parcial", options.somePieces,
                 "com --pecas: deixa de fora as linhas com erro e desenha as outras");
    app.add_option("--chapas", options.cutFiles,
                   "chapas e perfis dobrados abertos, para corte: um DXF por marca numa pasta, ou "
                   "todos num arquivo")
        ->type_name("PASTA|ARQUIVO.dxf");
    app.add_flag("--forcar", options.forced,
                 "com --chapas: grava mesmo o que --confere apontaria nestas peças");
    for (std::size_t i = 0; i < options.plots.size(); ++i)
        app.add_option(kPlotOptions[i][0], options.plots[i],
                       "plota a extensão do desenho, ajustada a uma folha A4")
            ->type_name(kPlotOptions[i][1]);
    app.add_option("--layout", options.layout,
                   "com --pdf, --svg, --png: este layout em 1:1 no seu papel; todos: cada um que "
                   "tem alguma coisa")
        ->type_name("NOME");
    app.add_flag("--sem-camadas", noLayers,
                 "com --pdf, --svg: as camadas do desenho não são camadas do arquivo");
    app.add_flag("--rodape", options.footer,
                 "com --pdf, --svg, --png: arquivo, data e escala na margem de baixo");
    app.add_option("--instalacao", options.installation,
                   "pasta de instalação (no lugar de ZPFORJA2010)")
        ->type_name("PASTA");
    app.add_option("--modulo", options.modules, "carrega também este módulo (pode ser repetida)")
        ->type_name("ARQUIVO.arx")
        ->expected(1)
        ->take_all()
        ->allow_extra_args(false);  // one value each time, what follows is the drawing
    app.add_flag("--sem-modulos", noModules, "não carrega os módulos de costume");
    app.add_flag("--sem-arx", defaultOnly,
                 "recusa os módulos que um roteiro ou script pedir, menos os de costume");
    app.add_flag("--quieto", quiet, "não mostra o diálogo com o roteiro");

    exitCode = kDone;
    // The library takes them backwards, without the program's name.
    std::vector<std::string> words = programArguments(argc, argv);
    if (!words.empty()) words.erase(words.begin());
    std::reverse(words.begin(), words.end());
    try {
        app.parse(std::move(words));
    } catch (const CLI::CallForHelp&) {
        std::cout << app.help();
        return std::nullopt;
    } catch (const CLI::ParseError& error) {
        std::cerr << "prancheta-console: " << usageError(app, error)
                  << "\nVeja prancheta-console --ajuda.\n";
        exitCode = kUsage;
        return std::nullopt;
    }
    if (version) {
        std::cout << "prancheta-console " PRANCHETA_VERSION "\n";
        return std::nullopt;
    }
    if (!drawings.empty()) {
        options.drawing = drawings.front();
        options.otherDrawings.assign(drawings.begin() + 1, drawings.end());
    }
    options.layers = !noLayers;
    options.defaultModules = !noModules;
    options.otherModules = !defaultOnly;
    options.transcript =
        !quiet && options.check.empty() && options.catalogues.empty() && options.compare.empty();
    if (!options.check.empty()) options.drawing = options.check;
    if (!options.compare.empty()) options.drawing = options.compare.back();
    findOutputs(options);
    if (const std::string refusal = refusalOf(app, options); !refusal.empty()) {
        std::cerr << "prancheta-console: " << harmless(refusal)
                  << "\nVeja prancheta-console --ajuda.\n";
        exitCode = kUsage;
        return std::nullopt;
    }
    return options;
}

}  // namespace prancheta::console
