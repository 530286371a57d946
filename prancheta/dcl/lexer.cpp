// SPDX-License-Identifier: MIT
// One pass over the bytes; the language's own characters are all ASCII, other bytes only pass
// through comments and texts.
#include "prancheta/dcl/lexer.h"

#include <algorithm>

namespace prancheta::dcl {
namespace {

/// Longer texts are damage: nothing that fits on a screen comes near it.
constexpr std::size_t kLongestText = 65536;
constexpr std::size_t kShownText = 30;

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

std::string inQuotes(std::string_view text) {
    std::size_t length = std::min(text.size(), kShownText);
    while (length < text.size() && length > 0 && isContinuation(text[length])) --length;
    const std::string shown(text.substr(0, length));
    return '"' + shown + (length < text.size() ? "...\"" : "\"");
}

}  // namespace

Error Place::error(std::string text) const {
    return {std::move(text), file ? *file : "", line, column};
}

std::string Token::description() const {
    switch (kind) {
        case TokenKind::Name:
            return "o nome " + inQuotes(text);
        case TokenKind::Text:
            return "o texto " + inQuotes(text);
        case TokenKind::Integer:
        case TokenKind::Real:
            return "o número " + text;
        case TokenKind::End:
            return "o fim do arquivo";
        default:
            return inQuotes(text);
    }
}

Lexer::Lexer(std::string_view text, std::shared_ptr<const std::string> file)
    : m_text(text), m_file(std::move(file)) {}

char Lexer::peek(std::size_t ahead) const {
    return m_next + ahead < m_text.size() ? m_text[m_next + ahead] : '\0';
}

void Lexer::advance() {
    const char c = m_text[m_next++];
    if (c == '\n' || (c == '\r' && peek() != '\n')) {
        ++m_line;
        m_column = 1;
    } else if (atEnd() || !isContinuation(m_text[m_next])) {
        ++m_column;
    }
}

std::string Lexer::currentCharacter() const {
    std::size_t length = 1;
    while (m_next + length < m_text.size() && isContinuation(m_text[m_next + length])) ++length;
    const char c = m_text[m_next];
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
        return "um caractere de controle (código " + std::to_string(static_cast<int>(c)) + ")";
    return '"' + std::string(m_text.substr(m_next, length)) + '"';
}

Result<void> Lexer::skipBlanks() {
    while (!atEnd()) {
        const char c = peek();
        if (c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v') {
            advance();
        } else if (c == '/' && peek(1) == '/') {
            while (!atEnd() && peek() != '\n' && peek() != '\r') advance();
        } else if (c == '/' && peek(1) == '*') {
            const Place start = here();
            advance();
            advance();
            while (!atEnd() && !(peek() == '*' && peek(1) == '/')) advance();
            if (atEnd())
                return start.error("o comentário aberto aqui não é fechado: esperava \"*/\"");
            advance();
            advance();
        } else {
            break;
        }
    }
    return {};
}

Result<Token> Lexer::next() {
    if (Result<void> skipped = skipBlanks(); !skipped) return skipped.error();
    Token token;
    token.at = here();
    token.lastLine = m_line;
    if (atEnd()) return token;
    const char c = peek();
    if (isLetter(c)) return name(std::move(token));
    if (isDigit(c) || c == '-' || c == '+' || c == '.') return number(std::move(token));
    if (c == '"') return text(std::move(token));
    if (c == '@') return include(std::move(token));
    switch (c) {
        case ':':
            token.kind = TokenKind::Colon;
            break;
        case '{':
            token.kind = TokenKind::OpenBrace;
            break;
        case '}':
            token.kind = TokenKind::CloseBrace;
            break;
        case ';':
            token.kind = TokenKind::Semicolon;
            break;
        case '=':
            token.kind = TokenKind::Equals;
            break;
        default:
            return token.at.error("esperava um nome, um valor ou pontuação, encontrei " +
                                  currentCharacter());
    }
    token.text = c;
    advance();
    return token;
}

Result<Token> Lexer::name(Token token) {
    token.kind = TokenKind::Name;
    while (isLetter(peek()) || isDigit(peek()) || peek() == '_') {
        token.text += peek();
        advance();
    }
    return token;
}

Result<Token> Lexer::number(Token token) {
    token.kind = TokenKind::Integer;
    if (peek() == '-' || peek() == '+') {
        if (peek() == '-') token.text += '-';
        advance();
    }
    if (!isDigit(peek())) {
        if (peek() == '.' && isDigit(peek(1)))
            return token.at.error("esperava um algarismo antes do ponto: escreva 0.5, e não .5");
        return token.at.error("esperava um número, encontrei " +
                              (atEnd() ? std::string("o fim do arquivo") : currentCharacter()));
    }
    while (isDigit(peek()) || (peek() == '.' && token.kind == TokenKind::Integer)) {
        if (peek() == '.') token.kind = TokenKind::Real;
        token.text += peek();
        advance();
    }
    if (isLetter(peek()) || peek() == '_' || peek() == '.')
        return here().error("esperava o fim do número " + token.text + ", encontrei " +
                            currentCharacter());
    return token;
}

Result<char> Lexer::escape() {
    const Place start = here();
    advance();
    const char c = peek();
    if (atEnd()) return start.error("esperava o fim do texto, encontrei o fim do arquivo");
    const std::string shown = currentCharacter();
    advance();
    switch (c) {
        case '"':
        case '\\':
            return c;
        case 'n':
            return '\n';
        case 't':
            return '\t';
        default:
            return start.error("esperava n, t, \" ou \\ depois da barra invertida, encontrei " +
                               shown + ": uma barra invertida no texto escreve-se \\\\");
    }
}

Result<Token> Lexer::text(Token token) {
    token.kind = TokenKind::Text;
    advance();
    while (!atEnd() && peek() != '"') {
        if (peek() == '\\') {
            Result<char> c = escape();
            if (!c) return c.error();
            token.text += *c;
        } else {
            if (peek() != '\r' || peek(1) != '\n') token.text += peek() == '\r' ? '\n' : peek();
            advance();
        }
        if (token.text.size() > kLongestText)
            return token.at.error("o texto aberto aqui é longo demais: falta a aspa que o fecha?");
    }
    if (atEnd()) return token.at.error("o texto aberto aqui não é fechado: esperava a aspa final");
    token.lastLine = m_line;
    advance();
    return token;
}

Result<Token> Lexer::include(Token token) {
    constexpr std::string_view kWord = "@include";
    const char after = peek(kWord.size());
    if (!m_text.substr(m_next).starts_with(kWord) || isLetter(after) || isDigit(after) ||
        after == '_')
        return token.at.error("esperava @include");
    token.kind = TokenKind::Include;
    token.text = kWord;
    for (std::size_t i = 0; i < kWord.size(); ++i) advance();
    return token;
}

}  // namespace prancheta::dcl
