// SPDX-License-Identifier: MIT
// The list of texts behind most catalogues.
#include "perfis/catalogues/str_list.h"

#include <algorithm>

namespace perfis {
namespace {
constexpr std::size_t kReadBuffer = 119;
}

ZpStrList::~ZpStrList() { clear(); }

void ZpStrList::clear() {
    while (m_first != nullptr) {
        Node* const next = m_first->next;
        delete m_first;
        m_first = next;
    }
    m_last = nullptr;
    m_count = 0;
}

int ZpStrList::read(std::wstring_view path) {
    const std::shared_ptr<const ListText> list = readListText(path);
    if (!list) return 0;
    clear();
    m_format = list->format;
    LineReader reader(list->text);
    std::wstring piece;
    while (reader.read(piece, kReadBuffer)) {
        cutAtSeparator(piece, L"\r");
        cutAtSeparator(piece, L"\n");
        if (piece.front() != L'\n') append(piece);
    }
    return 1;
}

std::wstring ZpStrList::fileText() const {
    std::wstring text;
    for (const Node* node = m_first; node != nullptr; node = node->next) {
        text += node->text.get();
        text += L'\n';
    }
    return text;
}

int ZpStrList::write(std::wstring_view path) const {
    return writeListText(path, fileText(), m_format) ? 1 : 0;
}

int ZpStrList::getAt(std::wstring& text, unsigned index) const {
    const Node* const node = nodeAt(index);
    if (node == nullptr || node->text == nullptr) return 0;
    text = node->text.get();
    return 1;
}

int ZpStrList::replaceAt(std::wstring_view text, unsigned index) {
    Node* const node = nodeAt(index);
    if (node == nullptr || node->text == nullptr) return 0;
    node->text = copyOf(text);
    return 1;
}

int ZpStrList::removeAt(unsigned index) {
    if (index >= m_count) return 0;
    Node* const before = index == 0 ? nullptr : nodeAt(index - 1);
    Node*& link = before == nullptr ? m_first : before->next;
    Node* const node = link;
    link = node->next;
    if (m_last == node) m_last = before;
    delete node;
    --m_count;
    return 1;
}

int ZpStrList::prepend(std::wstring_view text) {
    auto* const node = new Node{copyOf(text), m_first};
    m_first = node;
    if (m_last == nullptr) m_last = m_first;
    ++m_count;
    return 1;
}

int ZpStrList::append(std::wstring_view text) {
    if (m_last == nullptr) return prepend(text);
    m_last->next = new Node{copyOf(text), nullptr};
    m_last = m_last->next;
    ++m_count;
    return 1;
}

bool ZpStrList::contains(std::wstring_view text) const {
    for (const Node* node = m_first; node != nullptr; node = node->next)
        if (text == node->text.get()) return true;
    return false;
}

std::vector<std::wstring> ZpStrList::texts() const {
    std::vector<std::wstring> out;
    out.reserve(m_count);
    for (const Node* node = m_first; node != nullptr; node = node->next)
        out.emplace_back(node->text.get());
    return out;
}

int ZpStrList::fillTile(ads_hdlg dialog, const wchar_t* key) const {
    if (ads_start_list(dialog, key, LIST_NEW, 0) != RTNORM) return 0;
    for (const Node* node = m_first; node != nullptr; node = node->next)
        (void)ads_add_list(node->text.get());
    (void)ads_end_list();
    return 1;
}

ZpStrList::Node* ZpStrList::nodeAt(unsigned index) const {
    if (index >= m_count) return nullptr;
    Node* node = m_first;
    while (index-- > 0) node = node->next;
    return node;
}

/// A text ends at its first null character, as everywhere in the host's interface.
std::unique_ptr<wchar_t[]> ZpStrList::copyOf(std::wstring_view text) {
    const std::size_t length = std::min(text.find(L'\0'), text.size());
    auto copy = std::make_unique<wchar_t[]>(length + 1);
    std::copy_n(text.begin(), length, copy.get());
    return copy;
}

}  // namespace perfis
