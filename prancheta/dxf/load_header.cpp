// SPDX-License-Identifier: MIT
// Section HEADER.
#include <algorithm>
#include <cmath>
#include <limits>

#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/user_system.h"
#include "prancheta/dxf/header_variables.h"
#include "prancheta/dxf/loader.h"
#include "prancheta/dxf/table_at.h"

namespace prancheta::dxf {

bool Loader::readHeader() {
    takeVersion();
    std::string name;
    Tags tags;
    for (std::size_t i = 1; i <= m_record.tags.size(); ++i) {
        const bool end = i == m_record.tags.size();
        if (!end && m_record.tags[i].code != 9) {
            tags.push_back(m_record.tags[i]);
            continue;
        }
        if (!name.empty()) takeVariable(name, tags);
        if (m_fault) return false;
        tags.clear();
        if (!end) name = trim(m_record.tags[i].value);
    }
    if (nextIn(m_reader, m_record, "HEADER", "ENDSEC"))
        return bad(m_record.at, "falta o fim (ENDSEC) da seção HEADER");
    return !m_fault;
}

/// The release comes first of all: it says how the texts are to be read.
void Loader::takeVersion() {
    const Tags& tags = m_record.tags;
    std::string_view codePage;
    for (std::size_t i = 0; i + 1 < tags.size(); ++i) {
        if (tags[i].code != 9) continue;
        const std::string_view name = trim(tags[i].value);
        const std::string_view value = trim(tags[i + 1].value);
        if (name == "$ACADVER") {
            m_version = value;
            setCharset(charsetOf(m_version));
        }
        if (name == "$DWGCODEPAGE") codePage = value;
        std::uint64_t seed = 0;
        if (name == "$HANDSEED" && parseHandle(value, seed) && seed > 1) {
            m_core.reserveHandle(seed - 1);
            m_hasSeed = true;
        }
    }
    takeCodePage(codePage);
}

/// Releases before UTF-8 only. The texts are written in the same page again, so its name has to
/// come back with them.
void Loader::takeCodePage(std::string_view name) {
    const auto is = [&](const wchar_t* known) { return equalNoCase(toWide(name), known); };
    if (name.empty() || is(L"ANSI_1252") || charset() != Charset::Windows1252) return;
    if (is(L"DOS850")) return setCharset(Charset::Dos850);
    if (is(L"UTF-8") || is(L"UTF8")) return setCharset(Charset::Utf8);
    m_page = CodePage::named(name);
    if (m_page == nullptr) {
        m_page = std::make_unique<CodePage>();
        note("a página de código " + toUtf8(toWide(name)) +
                 " não é conhecida; as letras que não são do ASCII não podem ser mostradas, mas "
                 "ficam no arquivo como estão",
             name.data(), 0);
    }
    m_core.foreign().header.emplace_back(kCodePage, RawTags{{3, decode(name, charset())}});
    setCharset(Charset(*m_page));
}

void Loader::takeVariable(const std::string& name, const Tags& tags) {
    if (isWritersOwn(name)) return;
    if (const HeaderVariable* known = headerVariable(name); known != nullptr) {
        std::string why;
        for (const Tag& tag : tags)
            if (!checkValue(tag, why)) {
                why += " (variável " + name + ")";
                (void)bad(tag.value.data(), why);
                return;
            }
        m_variables.emplace_back(name, tags);
        return;
    }
    RawTags kept;
    if (!appendRaw(kept, tags, charset(), m_fault)) return;
    m_core.foreign().header.emplace_back(name, std::move(kept));
}

/// Variables name layers and styles, so they are set when all is read.
void Loader::applyVariables() {
    // The current dimension style brings values that the file's own go over.
    std::stable_partition(m_variables.begin(), m_variables.end(),
                          [](const auto& variable) { return variable.first == "$DIMSTYLE"; });
    // The height of texts would follow the scale that comes behind it.
    std::stable_partition(m_variables.begin(), m_variables.end(),
                          [](const auto& variable) { return variable.first != "$TEXTSIZE"; });
    for (const auto& [name, tags] : m_variables) {
        const HeaderVariable* const known = headerVariable(name);
        if (known == nullptr || known->inDimStyle || tags.empty()) continue;
        const std::wstring wide = toWide(std::string_view(name).substr(1));
        const VariableInfo* const info = m_core.variables().find(wide);
        if (info == nullptr) continue;
        VariableValue value = info->value;
        double numbers[3] = {};
        for (std::size_t i = 0; i < std::min<std::size_t>(tags.size(), 3); ++i)
            (void)parseReal(tags[i].value, numbers[i]);
        const bool isInteger = std::holds_alternative<short>(value) || known->code == 62;
        if (isInteger && !(std::abs(numbers[0]) <= std::numeric_limits<short>::max())) {
            note("variável " + name + " ignorada: valor fora da faixa", tags[0].value.data(), 0);
            continue;
        }
        if (std::holds_alternative<short>(value))
            value = static_cast<short>(numbers[0]);
        else if (std::holds_alternative<double>(value))
            value = known->code == 50 ? radiansOf(numbers[0]) : numbers[0];
        else if (std::holds_alternative<AcGePoint3d>(value))
            value = AcGePoint3d(numbers[0], numbers[1], numbers[2]);
        else
            value = known->code == 62 ? colorText(static_cast<int>(numbers[0]))
                                      : std::wstring(trim(std::wstring_view(text(tags[0].value))));
        if (info->value == value) continue;
        // Files name a current style that they do not have; nothing is drawn with it yet.
        if (name == "$DIMSTYLE" && ObjectAccess::lookup(tableAt(m_database.dimStyleTableId()),
                                                        std::get<std::wstring>(value))
                                       .isNull())
            continue;
        // No user sets these, files do.
        if (info->access == VariableAccess::ReadOnly) {
            m_core.variables().force(wide, value);
            continue;
        }
        if (const Result<void> done = m_core.variables().set(wide, value); !done)
            note("variável " + name + " ignorada: " + done.error().text, tags[0].value.data(), 0);
    }
    if (!holdsPlaneSystem(m_core.variables()))
        note(
            "o SCP do arquivo ($UCSXDIR, $UCSYDIR) sai do plano do desenho: fica guardado, e "
            "vale o SCP mundo",
            nullptr, 0);
}

}  // namespace prancheta::dxf
