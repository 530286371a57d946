// SPDX-License-Identifier: MIT
// Section OBJECTS.
#include <algorithm>

#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/value_list.h"
#include "prancheta/dxf/kept_handles.h"
#include "prancheta/dxf/layout_object.h"
#include "prancheta/dxf/saver.h"

namespace prancheta::dxf {
namespace {

void beginMade(TagWriter& out, const char* type, Adesk::UInt64 handle, Adesk::UInt64 owner,
               const char* marker) {
    out.text(0, type);
    out.handle(5, handle);
    out.handle(330, owner);
    if (marker != nullptr) out.marker(marker);
}

void writeEntry(TagWriter& out, std::string_view key, int code, Adesk::UInt64 handle) {
    out.text(3, key);
    out.handle(code, handle);
}

/// A layout goes by the name that it has now.
const std::wstring& nameOf(const std::wstring& key, const AcDbStub* stub) {
    const AcDbLayout* const layout = AcDbLayout::cast(stub->object);
    return layout != nullptr ? layout->layoutName() : key;
}

bool isHardOwner(const RawTags& kept, bool otherwise) {
    for (const RawTag& tag : kept) {
        long long value = 0;
        if (tag.code == 280 && parseInteger(tag.value, value)) return value != 0;
    }
    return otherwise;
}

}  // namespace

void Saver::writeObjects() {
    section("OBJECTS");
    const AcDbStub* const root = m_database.namedObjectsDictionaryId();
    writeDictionary(static_cast<const AcDbDictionary&>(*root->object));
    writeStandardObjects();
    for (const RawTags& object : m_core.foreign().objects)
        if (!m_handles.isGone(ownHandle(object))) writeKept(object);
    std::vector<const AcDbStub*> own;
    const StubPool& stubs = ObjectAccess::stubs(m_core);
    for (std::size_t i = 0; i < stubs.size(); ++i) {
        const AcDbStub& stub = stubs[i];
        if (stub.object == nullptr || stub.erased || &stub == root) continue;
        const AcRxClass* const which = stub.object->isA();
        if (which == AcDbDictionary::desc() || which == AcDbXrecord::desc() ||
            which == DrawOrderTable::desc() || which == AcDbLayout::desc())
            own.push_back(&stub);
    }
    std::sort(own.begin(), own.end(),
              [](const AcDbStub* a, const AcDbStub* b) { return a->handle < b->handle; });
    for (const AcDbStub* stub : own) {
        // What belongs to something erased goes with it.
        if (m_handles.of(stub->object->ownerId()) == 0) continue;
        if (const auto* dictionary = AcDbDictionary::cast(stub->object))
            writeDictionary(*dictionary);
        else if (const auto* order = DrawOrderTable::cast(stub->object))
            writeDrawOrder(*order);
        else if (const auto* layout = AcDbLayout::cast(stub->object))
            writeLayout(*layout);
        else
            writeXrecord(static_cast<const AcDbXrecord&>(*stub->object));
    }
    if (m_standard.layouts != 0) writeUsualLayouts();
    writePieceDictionaries();
    m_out.text(0, "ENDSEC");
}

/// Without its reactors that the file will not have, a group of entities without those, and the
/// frames of wipeouts as they are shown now.
void Saver::writeKept(const RawTags& object) {
    const bool isGroup = object.front().value == "GROUP";
    const bool isFrame = object.front().value == "WIPEOUTVARIABLES";
    const bool framed = m_core.variables().number(L"WIPEOUTFRAME") != 0;
    bool inBraces = false;
    for (const RawTag& tag : object) {
        std::uint64_t handle = 0;
        if (tag.code == 102) inBraces = tag.value != "}";
        long long frame = 0;
        if (isFrame && tag.code == 70 && parseInteger(tag.value, frame) && (frame != 0) != framed) {
            m_out.integer(70, framed ? 1 : 0);
            continue;
        }
        const bool mayGo = tag.code == 330 ? inBraces : tag.code == 340 && isGroup;
        if (!mayGo || !parseHandle(tag.value, handle) || !m_handles.isGone(handle))
            m_out.raw(tag.code, tag.value);
    }
}

void Saver::beginObject(const char* type, const AcDbObject& object) {
    m_out.text(0, type);
    m_out.handle(5, object.objectId().handle().value());
    m_entities.links(ObjectAccess::extra(object));
    m_out.handle(330, m_handles.of(object.ownerId()));
}

void Saver::writeDictionary(const AcDbDictionary& dictionary) {
    static const RawTags kNone;
    const ObjectExtra* const extra = ObjectAccess::extra(dictionary);
    const RawTags& kept = extra != nullptr ? extra->foreign : kNone;
    const AcDbStub* const owner = dictionary.ownerId();
    const bool isRoot = dictionary.objectId() == m_database.namedObjectsDictionaryId();
    const bool isExtension = !isRoot && owner != nullptr && owner->object != nullptr &&
                             owner->object->isA() != AcDbDictionary::desc();
    const bool hard = isHardOwner(kept, isExtension);
    int code = hard ? 360 : 350;
    for (const RawTag& tag : kept)
        if (tag.code == kEntryCode) code = tag.value == "360" ? 360 : 350;
    const auto keeps = [&](int group) {
        return std::any_of(kept.begin(), kept.end(),
                           [group](const RawTag& tag) { return tag.code == group; });
    };
    beginObject("DICTIONARY", dictionary);
    m_out.marker("AcDbDictionary");
    if (hard && !keeps(280)) m_out.integer(280, 1);
    if (!keeps(281)) m_out.integer(281, 1);
    for (const RawTag& tag : kept)
        if (tag.code != 100 && tag.code != kEntryCode) m_out.raw(tag.code, tag.value);
    for (const auto& [key, id] : ObjectAccess::entries(dictionary))
        if (const Adesk::UInt64 handle = m_handles.of(id); handle != 0)
            writeEntry(m_out, encodeText(nameOf(key, id)), code, handle);
    for (const LongPiece& piece : m_longPieces)
        if (piece.dictionary == dictionary.objectId().handle().value())
            writeEntry(m_out, kPieceApplication, code, piece.record);
    if (isRoot) {
        const std::pair<const char*, Adesk::UInt64> made[] = {
            {"ACAD_GROUP", m_standard.groups},
            {"ACAD_LAYOUT", m_standard.layouts},
            {"ACAD_MLINESTYLE", m_standard.lineStyles},
            {"ACAD_PLOTSTYLENAME", m_standard.plotStyles},
            {"ACAD_WIPEOUT_VARS", m_standard.wipeouts}};
        for (const auto& [key, handle] : made)
            if (handle != 0) writeEntry(m_out, key, code, handle);
    }
    if (extra != nullptr) m_out.raw(extra->xdata);
}

void Saver::writeXrecord(const AcDbXrecord& record) {
    const ObjectExtra* const extra = ObjectAccess::extra(record);
    beginObject("XRECORD", record);
    m_out.marker("AcDbXrecord");
    bool hasFlag = false;
    if (extra != nullptr) {
        for (const RawTag& tag : extra->foreign) {
            hasFlag = hasFlag || tag.code == 280;
            if (tag.code != 100) m_out.raw(tag.code, tag.value);
        }
    }
    if (!hasFlag) m_out.integer(280, 1);
    writeList(ObjectAccess::list(record));
    if (extra != nullptr) m_out.raw(extra->xdata);
}

void Saver::writeList(const resbuf* list) {
    using Kind = ::prancheta::ValueKind;
    for (; list != nullptr; list = list->rbnext) {
        const int code = list->restype;
        AcDbObjectId id;
        switch (kindOfValue(code)) {
            case Kind::Text:
                m_out.meaning(code, list->resval.rstring != nullptr ? list->resval.rstring : L"");
                break;
            case Kind::Real:
                m_out.real(code, list->resval.rreal);
                break;
            case Kind::Point:
                m_out.point(
                    code, {list->resval.rpoint[0], list->resval.rpoint[1], list->resval.rpoint[2]});
                break;
            case Kind::Int16:
                m_out.integer(code, list->resval.rint);
                break;
            case Kind::Int32:
                m_out.integer(code, list->resval.rlong);
                break;
            case Kind::Name:
                (void)acdbGetObjectId(id, list->resval.rlname);  // null for what is gone
                m_out.handle(code, m_handles.of(id));
                break;
            case Kind::Binary: {
                std::string hex;
                constexpr char kDigits[] = "0123456789ABCDEF";
                for (short i = 0; i < list->resval.rbinary.clen; ++i) {
                    const auto byte = static_cast<unsigned char>(list->resval.rbinary.buf[i]);
                    hex.push_back(kDigits[byte >> 4]);
                    hex.push_back(kDigits[byte & 0xF]);
                }
                m_out.raw(code, hex);
                break;
            }
            default:
                break;
        }
    }
}

void Saver::writeStandardObjects() {
    const Adesk::UInt64 root = m_database.namedObjectsDictionaryId().handle().value();
    const StandardHandles& s = m_standard;
    const auto dictionary = [&](Adesk::UInt64 handle) {
        beginMade(m_out, "DICTIONARY", handle, root, "AcDbDictionary");
        m_out.integer(281, 1);
    };
    if (s.groups != 0) dictionary(s.groups);
    if (s.wipeouts != 0) {
        beginMade(m_out, "WIPEOUTVARIABLES", s.wipeouts, root, "AcDbWipeoutVariables");
        m_out.integer(70, 0);
    }
    if (s.lineStyles != 0) {
        dictionary(s.lineStyles);
        writeEntry(m_out, "Standard", 350, s.lineStyle);
        beginMade(m_out, "MLINESTYLE", s.lineStyle, s.lineStyles, "AcDbMlineStyle");
        m_out.text(2, "STANDARD");
        m_out.integer(70, 0);
        m_out.text(3, "");
        m_out.integer(62, 256);
        m_out.real(51, 90.0);
        m_out.real(52, 90.0);
        m_out.integer(71, 2);
        for (const double offset : {0.5, -0.5}) {
            m_out.real(49, offset);
            m_out.integer(62, 256);
            m_out.text(6, "BYLAYER");
        }
    }
    if (s.plotStyles != 0) {
        beginMade(m_out, "ACDBDICTIONARYWDFLT", s.plotStyles, root, "AcDbDictionary");
        m_out.integer(281, 1);
        writeEntry(m_out, "Normal", 350, s.plotStyle);
        m_out.marker("AcDbDictionaryWithDefault");
        m_out.handle(340, s.plotStyle);
        beginMade(m_out, "ACDBPLACEHOLDER", s.plotStyle, s.plotStyles, nullptr);
    }
}

void Saver::writeLayout(const AcDbLayout& layout) {
    static const RawTags kNone;
    const ObjectExtra* const extra = ObjectAccess::extra(layout);
    const RawTags& foreign = extra != nullptr ? extra->foreign : kNone;
    m_out.text(0, "LAYOUT");
    m_out.handle(5, layout.objectId().handle().value());
    const std::size_t first = m_entities.applicationGroups(foreign);
    m_entities.links(extra);
    m_out.handle(330, m_handles.of(layout.ownerId()));
    dxf::writeLayout(layout,
                     RawTags(foreign.begin() + static_cast<std::ptrdiff_t>(first), foreign.end()),
                     m_handles.of(layout.blockTableRecordId()), m_out);
    if (extra != nullptr) m_out.raw(extra->xdata);
}

/// Of a drawing that has none yet; where they will stand when they are objects.
void Saver::writeUsualLayouts() {
    const StandardHandles& s = m_standard;
    beginMade(m_out, "DICTIONARY", s.layouts,
              m_database.namedObjectsDictionaryId().handle().value(), "AcDbDictionary");
    m_out.integer(281, 1);
    writeEntry(m_out, "Model", 350, s.modelLayout);
    writeEntry(m_out, "Layout1", 350, s.paperLayout);
    int order = 0;
    for (const Tab& tab : m_tabs) {
        AcDbLayout layout;
        (void)layout.setLayoutName(tab.name.c_str());  // a new object takes any value
        (void)layout.setTabOrder(order);
        beginMade(m_out, "LAYOUT", order == 0 ? s.modelLayout : s.paperLayout, s.layouts, nullptr);
        dxf::writeLayout(layout, {}, tab.block.handle().value(), m_out);
        ++order;
    }
}

/// Fields that are too long for extended data, each in an XRECORD of the piece's extension
/// dictionary.
void Saver::writePieceDictionaries() {
    for (const LongPiece& lp : m_longPieces) {
        const ObjectExtra* const extra = ObjectAccess::extra(*lp.piece);
        const bool own = extra != nullptr && m_handles.of(extra->extensionDictionary) != 0;
        if (!own) {
            beginMade(m_out, "DICTIONARY", lp.dictionary, lp.piece->objectId().handle().value(),
                      "AcDbDictionary");
            m_out.integer(280, 1);
            m_out.integer(281, 1);
            writeEntry(m_out, kPieceApplication, 360, lp.record);
        }
        m_filer.begin(lp.piece->isA()->name());
        (void)lp.piece->dxfOutFields(&m_filer);  // it went well when the piece was written
        beginMade(m_out, "XRECORD", lp.record, lp.dictionary, "AcDbXrecord");
        m_out.integer(280, 1);
        m_filer.writeXrecord(m_out);
    }
}

}  // namespace prancheta::dxf
