// SPDX-License-Identifier: MIT
// Table of the attributes, and their tests.
#include "prancheta/dcl/attributes.h"

#include <array>
#include <charconv>

#include "adsdlg.h"
#include "prancheta/base/text.h"

namespace prancheta::dcl {
namespace {

enum class Form { Flag, Whole, Number, Text, Character, Stops, Alignment, Layout, Color };

struct Rule {
    std::string_view name;
    Form form;
    double least = 0;
    double most = 0;  ///< no limits when both are 0
};

constexpr double kFarthest = 1e6;

constexpr std::array kRules{
    Rule{"action", Form::Text},
    Rule{"alignment", Form::Alignment},
    Rule{"allow_accept", Form::Flag},
    Rule{"aspect_ratio", Form::Number, 0, kFarthest},
    Rule{"big_increment", Form::Whole, 0, 65535},
    Rule{"children_alignment", Form::Alignment},
    Rule{"children_fixed_height", Form::Flag},
    Rule{"children_fixed_width", Form::Flag},
    Rule{"color", Form::Color},
    Rule{"columns_of", Form::Text},   // our own: a text whose words stand over that list's columns
    Rule{"description", Form::Text},  // our own: the name of a tile for who does not see it
    Rule{"edit_limit", Form::Whole, 0, 256},
    Rule{"edit_width", Form::Number, 0, kFarthest},
    Rule{"fixed_height", Form::Flag},
    Rule{"fixed_width", Form::Flag},
    Rule{"fixed_width_font", Form::Flag},
    Rule{"height", Form::Number, 0, kFarthest},
    Rule{"initial_focus", Form::Text},
    Rule{"is_bold", Form::Flag},
    Rule{"is_cancel", Form::Flag},
    Rule{"is_default", Form::Flag},
    Rule{"is_enabled", Form::Flag},
    Rule{"is_hidden",
         Form::Flag},  // our own: no window shows the tile, programs and scripts reach it
    Rule{"is_tab_stop", Form::Flag},
    Rule{"key", Form::Text},
    Rule{"label", Form::Text},
    Rule{"layout", Form::Layout},
    Rule{"list", Form::Text},
    Rule{"max_value", Form::Whole, -32768, 32767},
    Rule{"min_value", Form::Whole, -32768, 32767},
    Rule{"mnemonic", Form::Character},
    Rule{"multiple_select", Form::Flag},
    Rule{"password_char", Form::Character},
    Rule{"reports_typing", Form::Flag},  // our own: an edit box, reason 3 at every letter
    Rule{"small_increment", Form::Whole, 0, 65535},
    Rule{"tab_truncate", Form::Flag},
    Rule{"tabs", Form::Stops},
    Rule{"value", Form::Text},
    Rule{"width", Form::Number, 0, kFarthest},
};

struct NamedColor {
    std::string_view name;
    int index;
};

constexpr std::array kColors{
    NamedColor{"dialog_line", DIALOG_LINE},
    NamedColor{"dialog_foreground", DIALOG_FOREGROUND},
    NamedColor{"dialog_background", DIALOG_BACKGROUND},
    NamedColor{"graphics_background", GRAPHICS_BACKGROUND},
    NamedColor{"graphics_foreground", 7},
    NamedColor{"black", 0},
    NamedColor{"red", 1},
    NamedColor{"yellow", 2},
    NamedColor{"green", 3},
    NamedColor{"cyan", 4},
    NamedColor{"blue", 5},
    NamedColor{"magenta", 6},
    NamedColor{"white", 7},
};

bool oneOf(std::string_view text, std::initializer_list<std::string_view> words) {
    for (std::string_view word : words)
        if (text == word) return true;
    return false;
}

/// Rising numbers with blanks between.
bool areStops(std::string_view text) {
    double last = -1;
    for (text = trim(text); !text.empty(); text = trim(text)) {
        const std::size_t end = std::min(text.find_first_of(" \t\n"), text.size());
        double stop = 0;
        if (!parseNumber(text.substr(0, end), stop) || stop < 0 || stop <= last) return false;
        last = stop;
        text.remove_prefix(end);
    }
    return true;
}

std::string numberProblem(const Rule& rule, const Value& value) {
    const bool whole = rule.form == Form::Whole;
    if (value.kind != ValueKind::Integer && (whole || value.kind != ValueKind::Real))
        return whole ? "um número inteiro" : "um número";
    double number = 0;
    const bool inside = parseNumber(std::string_view(value.text), number) && number >= rule.least &&
                        number <= rule.most;
    if (inside) return {};
    return "um número de " + numberText(rule.least) + " a " + numberText(rule.most);
}

/// What the rule expects, when the value is something else.
std::string expectation(const Rule& rule, const Value& value) {
    const bool word = value.kind == ValueKind::Word;
    const bool text = value.kind == ValueKind::Text;
    switch (rule.form) {
        case Form::Flag:
            return word && oneOf(value.text, {"true", "false"}) ? "" : "true ou false";
        case Form::Whole:
        case Form::Number:
            return numberProblem(rule, value);
        case Form::Text:
            return text ? "" : "um texto entre aspas";
        case Form::Character:
            return text && toWide(value.text).size() == 1 ? "" : "um só caractere entre aspas";
        case Form::Stops:
            return text && areStops(value.text) ? "" : "posições crescentes, como \"8 16 24\"";
        case Form::Alignment:
            return word && oneOf(value.text, {"left", "right", "top", "bottom", "centered"})
                       ? ""
                       : "left, right, top, bottom ou centered";
        case Form::Layout:
            return word && oneOf(value.text, {"horizontal", "vertical"}) ? ""
                                                                         : "horizontal ou vertical";
        case Form::Color:
            return colorIndex(value.text) && !text ? "" : "um nome de cor ou um número de 0 a 255";
    }
    return {};
}

}  // namespace

std::optional<int> colorIndex(std::string_view text) {
    for (const NamedColor& color : kColors)
        if (color.name == text) return color.index;
    int index = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), index);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    for (const NamedColor& color : kColors)
        if (color.index == index) return index;
    return index >= 0 && index <= 255 ? std::optional(index) : std::nullopt;
}

std::string whyUnsuitable(std::string_view attribute, const Value& value) {
    for (const Rule& rule : kRules) {
        if (rule.name != attribute) continue;
        const std::string expected = expectation(rule, value);
        if (expected.empty()) return {};
        return "esperava " + expected + " em \"" + std::string(attribute) + "\", encontrei \"" +
               value.text.substr(0, 40) + '"';
    }
    return {};
}

}  // namespace prancheta::dcl
