// SPDX-License-Identifier: MIT
// Splitting records into head, type and extended data.
#include "prancheta/dxf/entity_head.h"

#include <algorithm>

#include "prancheta/base/text.h"

namespace prancheta::dxf {
namespace {

void reset(RecordHead& head) {
    head.handle = head.owner = head.dictionary = 0;
    head.reactors.clear();
    head.layer = "0";
    head.linetype = {};
    head.linetypeScale = 1.0;
    head.color = 256;
    head.lineWeight = -1;
    head.paper = head.invisible = false;
    head.extra.clear();
    head.body.clear();
    head.xdata.clear();
}

class Splitter {
public:
    Splitter(const Record& record, RecordHead& head, std::optional<Fault>& fault)
        : m_tags(record.tags), m_head(head), m_fault(fault) {
        reset(head);
        head.at = record.at;
        const auto at = std::find_if(m_tags.begin(), m_tags.end(),
                                     [](const Tag& tag) { return tag.code >= 1000; });
        m_end = static_cast<std::size_t>(at - m_tags.begin());
        head.xdata.assign(at, m_tags.end());
    }

    bool entity() {
        const bool marked = hasMarkers();
        bool common = true;  // before the type's own subclass
        for (std::size_t i = 0; i < m_end; ++i) {
            const Tag& tag = m_tags[i];
            if (marked && tag.code == 100) {
                common = trim(tag.value) == "AcDbEntity";
                if (common) continue;
            }
            if (!common) {
                m_head.body.push_back(tag);
            } else if (tag.code == 102) {
                if (!group(i)) return false;
            } else if (!commonValue(tag, marked)) {
                return false;
            }
        }
        return true;
    }

    bool record(int handleCode) {
        bool common = true;
        for (std::size_t i = 0; i < m_end; ++i) {
            const Tag& tag = m_tags[i];
            if (tag.code == 100) {
                common = trim(tag.value) == "AcDbSymbolTableRecord";
                if (common) continue;
            }
            if (tag.code == handleCode && m_head.handle == 0) {
                if (!handle(tag, m_head.handle)) return false;
            } else if (!common || (tag.code != 102 && tag.code != 330)) {
                m_head.body.push_back(tag);
            } else if (tag.code == 102) {
                if (!group(i)) return false;
            } else if (!handle(tag, m_head.owner)) {
                return false;
            }
        }
        return true;
    }

private:
    bool hasMarkers() const {
        return std::any_of(m_tags.begin(), m_tags.begin() + static_cast<std::ptrdiff_t>(m_end),
                           [](const Tag& tag) { return tag.code == 100; });
    }

    bool bad(const Tag& tag) {
        m_fault = Fault{complaintAbout(tag), tag.value.data()};
        return false;
    }

    bool handle(const Tag& tag, Adesk::UInt64& value) {
        return parseHandle(tag.value, value) ? true : bad(tag);
    }

    template <class T>
    bool integer(const Tag& tag, T& value) {
        long long parsed = 0;
        if (!parseInteger(tag.value, parsed)) return bad(tag);
        value = static_cast<T>(parsed);
        return true;
    }

    bool flag(const Tag& tag, bool& value) {
        int parsed = 0;
        if (!integer(tag, parsed)) return false;
        value = parsed != 0;
        return true;
    }

    bool commonValue(const Tag& tag, bool marked) {
        switch (tag.code) {
            case 5:
                return handle(tag, m_head.handle);
            case 330:
                return handle(tag, m_head.owner);
            case 8:
                m_head.layer = trim(tag.value);
                return true;
            case 6:
                m_head.linetype = trim(tag.value);
                return true;
            case 62:
                return integer(tag, m_head.color);
            case 370:
                return integer(tag, m_head.lineWeight);
            case 67:
                return flag(tag, m_head.paper);
            case 60:
                return flag(tag, m_head.invisible);
            case 48:
                return parseReal(tag.value, m_head.linetypeScale) ? true : bad(tag);
            default:
                (marked ? m_head.extra : m_head.body).push_back(tag);
                return true;
        }
    }

    /// A group from 102 {NAME to 102 }; `i` is left at its last tag.
    bool group(std::size_t& i) {
        const std::string_view name = trim(m_tags[i].value);
        const bool isReactors = name == "{ACAD_REACTORS";
        const bool isDictionary = name == "{ACAD_XDICTIONARY";
        const bool known = isReactors || isDictionary;
        if (!known) m_head.extra.push_back(m_tags[i]);
        while (++i < m_end) {
            const Tag& tag = m_tags[i];
            const bool last = tag.code == 102;
            if (!known) {
                m_head.extra.push_back(tag);
            } else if (!last) {
                Adesk::UInt64 value = 0;
                if (!handle(tag, value)) return false;
                if (isReactors) m_head.reactors.push_back(value);
                if (isDictionary) m_head.dictionary = value;
            }
            if (last) return true;
        }
        return true;
    }

    const Tags& m_tags;
    RecordHead& m_head;
    std::optional<Fault>& m_fault;
    std::size_t m_end = 0;
};

}  // namespace

bool splitEntity(const Record& record, RecordHead& head, std::optional<Fault>& fault) {
    return Splitter(record, head, fault).entity();
}

bool splitRecord(const Record& record, int handleCode, RecordHead& head,
                 std::optional<Fault>& fault) {
    return Splitter(record, head, fault).record(handleCode);
}

bool appendRaw(RawTags& out, const Tags& tags, Charset charset, std::optional<Fault>& fault) {
    std::string why;
    for (const Tag& tag : tags) {
        if (!checkValue(tag, why)) {
            fault = Fault{why, tag.value.data()};
            return false;
        }
        // Among the blanks of a number may be a return, which would be saved as ^M.
        const ValueKind kind = kindOf(tag.code);
        const std::string_view value = kind == ValueKind::Text ? tag.value : trim(tag.value);
        const bool isNull = kind == ValueKind::Handle && value.empty();
        out.push_back({tag.code, isNull ? "0" : decode(value, charset)});
    }
    return true;
}

}  // namespace prancheta::dxf
