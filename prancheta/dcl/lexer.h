// SPDX-License-Identifier: MIT
// Splits a dialog file into names, texts, numbers and punctuation.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "prancheta/base/result.h"

namespace prancheta::dcl {

/// Where something stands; lines and columns (in characters) count from 1.
struct Place {
    std::shared_ptr<const std::string> file;
    int line = 0;
    int column = 0;

    Error error(std::string text) const;
};

enum class TokenKind {
    Name,
    Text,
    Integer,
    Real,
    Colon,
    OpenBrace,
    CloseBrace,
    Semicolon,
    Equals,
    Include,
    End,
};

struct Token {
    TokenKind kind = TokenKind::End;
    std::string text;  ///< names and numbers as written, texts with their escapes resolved
    Place at;
    int lastLine = 0;  ///< of a text that runs over several lines

    /// For "encontrei ...".
    std::string description() const;
};

/// Reads UTF-8 text that outlives it. After an error it must not be asked again.
class Lexer {
public:
    Lexer(std::string_view text, std::shared_ptr<const std::string> file);

    Result<Token> next();

private:
    Result<void> skipBlanks();
    Result<Token> name(Token token);
    Result<Token> number(Token token);
    Result<Token> text(Token token);
    Result<Token> include(Token token);
    Result<char> escape();

    bool atEnd() const { return m_next == m_text.size(); }
    char peek(std::size_t ahead = 0) const;
    void advance();
    std::string currentCharacter() const;
    Place here() const { return {m_file, m_line, m_column}; }

    std::string_view m_text;
    std::shared_ptr<const std::string> m_file;
    std::size_t m_next = 0;
    int m_line = 1;
    int m_column = 1;
};

}  // namespace prancheta::dcl
