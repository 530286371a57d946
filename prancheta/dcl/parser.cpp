// SPDX-License-Identifier: MIT
// The grammar, one function each; see the header for the design.
#include "prancheta/dcl/parser.h"

#include <algorithm>
#include <cassert>
#include <set>

#include "prancheta/base/nesting.h"
#include "prancheta/dcl/base_library.h"
#include "prancheta/dcl/check.h"
#include "prancheta/dcl/kinds.h"
#include "prancheta/dcl/source_file.h"
#include "prancheta/dcl/unresolved.h"

namespace prancheta::dcl {
namespace fs = std::filesystem;
namespace {

constexpr std::size_t kMostAttributes = 200;
constexpr std::size_t kMostTilesOfFile = 200000;
constexpr std::string_view kSettings = "dcl_settings";

/// What the files of one load share.
struct Load {
    const Library* base = nullptr;
    Library library;
    UnresolvedUses uses;
    std::vector<fs::path> open;  ///< chain of files being read
    std::set<fs::path> seen;
    std::size_t tilesOfDialogs = 0;

    DefinitionPtr find(const std::string& name) const {
        for (const Library* from : {&library, base}) {
            if (from == nullptr) continue;
            const auto it = from->definitions.find(name);
            if (it != from->definitions.end()) return it->second;
        }
        return nullptr;
    }
    void report(Severity severity, Error error) {
        library.findings.push_back({severity, std::move(error)});
    }
};

Result<void> loadFile(Load& load, const fs::path& path, const Place* includedAt);

std::string inQuotes(const std::string& name) { return '"' + name + '"'; }

/// Merges a parent: what is there already stays, for it comes from a parent further left.
void inherit(Definition& into, const Definition& parent) {
    if (!into.kind) into.kind = parent.kind;
    into.attributes.insert(parent.attributes.begin(), parent.attributes.end());
    if (into.children.empty()) into.children = parent.children;
}

class FileParser {
public:
    FileParser(Load& load, std::string_view text, std::shared_ptr<const std::string> name,
               fs::path folder)
        : m_load(load), m_lexer(text, std::move(name)), m_folder(std::move(folder)) {}

    Result<void> run();

private:
    Result<void> read();
    Result<Token> take(TokenKind kind, std::string_view what);
    Error unexpected(std::string_view what) const;

    Result<void> include();
    Result<void> definition();
    Result<void> parents(Definition& d);
    Result<void> body(Definition& d, int nesting);
    Result<void> attribute(Definition& d, const Token& name);
    Result<void> inlineInstance(Definition& d, int nesting);
    void reference(Definition& d, const Token& name);
    Result<void> finish(Definition& d);
    Result<void> settings(const Definition& d);
    DefinitionPtr use(const Token& name);

    Load& m_load;
    Lexer m_lexer;
    fs::path m_folder;
    Token m_token;
    Token m_before;
    std::string m_user;  ///< the named definition being read
};

Result<void> FileParser::read() {
    Result<Token> next = m_lexer.next();
    if (!next) return next.error();
    m_before = std::move(m_token);
    m_token = std::move(*next);
    return {};
}

Error FileParser::unexpected(std::string_view what) const {
    std::string text = "esperava " + std::string(what) + ", encontrei " + m_token.description();
    // A forgotten quote shows only here, lines below its place.
    if (m_before.kind == TokenKind::Text && m_before.lastLine > m_before.at.line)
        text += " (o texto aberto na linha " + std::to_string(m_before.at.line) +
                " veio até aqui: falta a aspa que o fecha?)";
    return m_token.at.error(std::move(text));
}

Result<Token> FileParser::take(TokenKind kind, std::string_view what) {
    if (m_token.kind != kind) return unexpected(what);
    Token taken = m_token;
    if (Result<void> done = read(); !done) return done.error();
    return taken;
}

Result<void> FileParser::run() {
    if (Result<void> done = read(); !done) return done;
    while (m_token.kind != TokenKind::End) {
        Result<void> done;
        if (m_token.kind == TokenKind::Include)
            done = include();
        else if (m_token.kind == TokenKind::Name)
            done = definition();
        else
            done = unexpected("o nome de uma definição ou @include");
        if (!done) return done;
    }
    return {};
}

Result<void> FileParser::include() {
    if (Result<void> done = read(); !done) return done;
    Result<Token> name = take(TokenKind::Text, "o nome do arquivo entre aspas depois de @include");
    if (!name) return name.error();
    return loadFile(m_load, findSource(name->text, m_folder), &name->at);
}

Result<void> FileParser::definition() {
    auto d = std::make_shared<Definition>();
    d->name = m_token.text;
    d->at = m_token.at;
    m_user = d->name;
    if (Result<void> done = read(); !done) return done;
    if (Result<Token> colon = take(TokenKind::Colon, "\":\" depois de " + inQuotes(d->name));
        !colon)
        return colon.error();
    if (Result<void> done = parents(*d); !done) return done;
    if (Result<void> done = body(*d, 1); !done) return done;
    if (d->name == kSettings) return settings(*d);
    if (Result<void> done = finish(*d); !done) return done;

    if (m_load.find(d->name) != nullptr && m_load.base != nullptr)
        m_load.report(Severity::Warning,
                      d->at.error(inQuotes(d->name) +
                                  " já era definido: vale esta definição daqui em diante"));
    if (d->kind == TileKind::Dialog) {
        m_load.tilesOfDialogs += d->tiles;
        if (m_load.tilesOfDialogs > kMostTilesOfFile)
            return d->at.error("o arquivo tem componentes demais");
    }
    m_load.library.definitions[d->name] = d;
    m_load.library.inOrder.push_back(std::move(d));
    return {};
}

DefinitionPtr FileParser::use(const Token& name) {
    DefinitionPtr found = m_load.find(name.text);
    if (found == nullptr && name.text != "default_dcl_settings")
        m_load.uses.addMissing(m_user, name.text, name.at);
    else
        m_load.uses.addResolved(m_user, name.text);
    return found;
}

Result<void> FileParser::parents(Definition& d) {
    for (;;) {
        Result<Token> name = take(TokenKind::Name, "o nome de um componente");
        if (!name) return name.error();
        if (const DefinitionPtr parent = use(*name)) {
            if (!parent->children.empty())
                m_load.report(Severity::Error,
                              name->at.error(inQuotes(name->text) +
                                             " já tem componentes e só pode ser usado como \"" +
                                             name->text + ";\""));
            inherit(d, *parent);
        }
        if (m_token.kind != TokenKind::Colon) break;
        if (Result<void> done = read(); !done) return done;
    }
    return {};
}

Result<void> FileParser::body(Definition& d, int nesting) {
    if (nesting > kDeepestNesting)
        return m_token.at.error("há componentes demais um dentro do outro");
    const Place opened = m_token.at;
    if (Result<Token> brace = take(TokenKind::OpenBrace, "\"{\""); !brace) return brace.error();
    while (m_token.kind != TokenKind::CloseBrace) {
        Result<void> done;
        if (m_token.kind == TokenKind::Colon) {
            done = inlineInstance(d, nesting);
        } else if (m_token.kind == TokenKind::Name) {
            const Token name = m_token;
            if (done = read(); !done) return done;
            if (m_token.kind == TokenKind::Equals) {
                done = attribute(d, name);
            } else if (m_token.kind == TokenKind::Semicolon) {
                reference(d, name);
                done = read();
            } else {
                done = unexpected("\"=\" ou \";\" depois de " + inQuotes(name.text));
            }
        } else if (m_token.kind == TokenKind::End) {
            done = unexpected("\"}\" para a chave aberta na linha " + std::to_string(opened.line));
        } else {
            done = unexpected("um atributo, um componente ou \"}\"");
        }
        if (!done) return done;
    }
    return read();
}

Result<void> FileParser::attribute(Definition& d, const Token& name) {
    if (Result<void> done = read(); !done) return done;
    auto value = std::make_shared<Value>();
    switch (m_token.kind) {
        case TokenKind::Text:
            value->kind = ValueKind::Text;
            break;
        case TokenKind::Integer:
            value->kind = ValueKind::Integer;
            break;
        case TokenKind::Real:
            value->kind = ValueKind::Real;
            break;
        case TokenKind::Name:
            value->kind = ValueKind::Word;
            break;
        default:
            return unexpected("um valor para " + inQuotes(name.text));
    }
    value->text = m_token.text;
    value->at = m_token.at;
    if (Result<void> done = read(); !done) return done;
    if (Result<Token> end =
            take(TokenKind::Semicolon, "\";\" depois do valor de " + inQuotes(name.text));
        !end)
        return end.error();

    const auto it = d.attributes.find(name.text);
    if (it != d.attributes.end()) {
        const bool own = std::find(d.own.begin(), d.own.end(), name.text) != d.own.end();
        if (own)
            m_load.report(Severity::Warning, name.at.error("o atributo " + inQuotes(name.text) +
                                                           " é dado duas vezes: vale o último"));
        else if (it->second->text == value->text)
            m_load.report(Severity::Hint, name.at.error("o atributo " + inQuotes(name.text) +
                                                        " repete o valor herdado"));
        it->second = std::move(value);
        if (!own) d.own.push_back(name.text);
        return {};
    }
    if (d.attributes.size() >= kMostAttributes)
        return name.at.error("há atributos demais neste componente");
    d.own.push_back(name.text);
    d.attributes.emplace(name.text, std::move(value));
    return {};
}

void FileParser::reference(Definition& d, const Token& name) {
    if (DefinitionPtr used = use(name)) d.children.push_back({std::move(used), name.at});
}

Result<void> FileParser::inlineInstance(Definition& d, int nesting) {
    if (Result<void> done = read(); !done) return done;
    Result<Token> name = take(TokenKind::Name, "o nome de um componente depois de \":\"");
    if (!name) return name.error();
    auto instance = std::make_shared<Definition>();
    instance->at = name->at;
    const DefinitionPtr parent = use(*name);
    if (parent != nullptr) inherit(*instance, *parent);
    const bool closed = parent != nullptr && !parent->children.empty();
    if (Result<void> done = body(*instance, nesting + 1); !done) return done;
    if (closed) {
        m_load.report(Severity::Error,
                      name->at.error(inQuotes(name->text) +
                                     " já tem componentes e não pode ser alterado: use \"" +
                                     name->text + ";\""));
        d.children.push_back({parent, name->at});
        return {};
    }
    if (Result<void> done = finish(*instance); !done) return done;
    if (parent != nullptr) d.children.push_back({std::move(instance), name->at});
    return {};
}

/// Counts the tree below a definition and drops what cannot stand in it.
Result<void> FileParser::finish(Definition& d) {
    if (d.kind && !isCluster(*d.kind) && !d.children.empty()) {
        m_load.report(Severity::Error,
                      d.children.front().at.error(
                          std::string(kindName(*d.kind)) +
                          " não pode ter outros componentes dentro: eles são deixados de fora"));
        d.children.clear();
    }
    std::erase_if(d.children, [&](const Child& child) {
        if (child.definition->kind == TileKind::Dialog)
            m_load.report(
                Severity::Error,
                child.at.error("uma caixa de diálogo não pode ficar dentro de outro componente"));
        return !child.definition->kind || child.definition->kind == TileKind::Dialog;
    });
    for (const Child& child : d.children) {
        d.tiles = std::min(d.tiles + child.definition->tiles, kMostTiles + 1);
        d.depth = std::max(d.depth, child.definition->depth + 1);
    }
    if (d.tiles > kMostTiles) return d.at.error("há componentes demais nesta definição");
    if (d.depth > kDeepestNesting) return d.at.error("há componentes demais um dentro do outro");
    return {};
}

Result<void> FileParser::settings(const Definition& d) {
    const Value* level = d.attribute("audit_level");
    if (level == nullptr) return {};
    if (level->kind != ValueKind::Integer || level->text.size() != 1 || level->text > "3")
        return level->at.error("esperava 0, 1, 2 ou 3 em audit_level, encontrei " +
                               inQuotes(level->text));
    m_load.library.auditLevel = level->text.front() - '0';
    return {};
}

Error circleOfIncludes(const Load& load, const fs::path& path, const Place& at) {
    std::string chain;
    for (auto it = std::find(load.open.begin(), load.open.end(), path); it != load.open.end(); ++it)
        chain += it->filename().string() + " → ";
    return at.error("os arquivos se incluem em círculo: " + chain + path.filename().string());
}

/// Reads one file; a file that was read before adds nothing.
Result<void> loadFile(Load& load, const fs::path& path, const Place* includedAt) {
    std::error_code error;
    fs::path identity = fs::weakly_canonical(path, error);
    if (error) identity = path;
    if (std::find(load.open.begin(), load.open.end(), identity) != load.open.end())
        return circleOfIncludes(load, identity, *includedAt);
    if (load.open.size() >= kDeepestNesting)
        return includedAt->error("há arquivos demais incluídos um dentro do outro");
    if (!load.seen.insert(identity).second) return {};

    const SourceStamp stamp = stampOf(identity);
    Result<std::string> text = readSource(path);
    if (!text && includedAt == nullptr) return text.error();
    if (!text)
        return includedAt->error("não consegui incluir " + inQuotes(text.error().file) + ": " +
                                 text.error().text);
    load.library.files.push_back(stamp);
    load.open.push_back(identity);
    FileParser parser(load, *text, std::make_shared<const std::string>(path.string()),
                      path.parent_path());
    Result<void> done = parser.run();
    load.open.pop_back();
    return done;
}

Library finishLoad(Load&& load) {
    Library& library = load.library;
    load.uses.report(library);
    check(library);
    std::erase_if(library.findings, [&](const Finding& finding) {
        return static_cast<int>(finding.severity) > library.auditLevel;
    });
    return std::move(load.library);
}

}  // namespace

const Value* Definition::attribute(std::string_view attributeName) const {
    const auto it = attributes.find(attributeName);
    return it != attributes.end() ? it->second.get() : nullptr;
}

Result<Library> parseFile(const fs::path& path) {
    Load load;
    load.base = &baseLibrary();
    if (Result<void> done = loadFile(load, path, nullptr); !done) return done.error();
    return finishLoad(std::move(load));
}

Result<Library> parseText(std::string_view text, std::string_view name) {
    Load load;
    load.base = &baseLibrary();
    FileParser parser(load, text, std::make_shared<const std::string>(name), {});
    if (Result<void> done = parser.run(); !done) return done.error();
    return finishLoad(std::move(load));
}

const Library& baseLibrary() {
    static const Library library = [] {
        Load load;
        for (int i = 0; i <= static_cast<int>(TileKind::Spacer); ++i) {
            auto d = std::make_shared<Definition>();
            d->kind = static_cast<TileKind>(i);
            d->name = kindName(*d->kind);
            load.library.definitions[d->name] = d;
        }
        FileParser parser(load, kBaseText, std::make_shared<const std::string>("base.dcl"), {});
        const Result<void> done = parser.run();
        assert(done.ok() && "the base library is part of the program");
        (void)done;
        return finishLoad(std::move(load));
    }();
    return library;
}

}  // namespace prancheta::dcl
