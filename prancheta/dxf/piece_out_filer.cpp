// SPDX-License-Identifier: MIT
// The record of a piece from its fields.
#include "prancheta/dxf/piece_out_filer.h"

#include "prancheta/database/xdata.h"
#include "prancheta/dxf/encoding.h"

namespace prancheta::dxf {
namespace {

/// Cuts a text where a new character starts, so that each part is valid UTF-8: all that a character
/// takes is counted with its first byte.
std::size_t partSize(std::string_view text) {
    std::size_t written = 0;
    for (std::size_t size = 0; size < text.size(); ++size) {
        written += writtenSize(text.substr(size, 1));
        if (written > kMaxXdataText) return size;
    }
    return text.size();
}

}  // namespace

void PieceOutFiler::begin(const ACHAR* className) {
    m_className = className;
    m_status = Acad::eOk;
    m_fields.clear();
    m_reals.clear();
    m_integers.clear();
    m_texts.clear();
}

/// A value of another kind than its code's could not be read back.
void PieceOutFiler::add(int code, Kind kind, std::size_t at, std::size_t count) {
    constexpr int kXdataCodes[] = {1000, 1000, 1040, 1010, 1070, 1071, 1005};
    if (!fieldSuits(code, kXdataCodes[static_cast<std::size_t>(kind)]))
        m_status = Acad::eInvalidInput;
    m_fields.push_back(
        {code, kind, static_cast<std::uint32_t>(at), static_cast<std::uint32_t>(count)});
}

Acad::ErrorStatus PieceOutFiler::setError(Acad::ErrorStatus es, const ACHAR*, ...) {
    return m_status = es;
}

Acad::ErrorStatus PieceOutFiler::writeString(int code, const ACHAR* text) {
    if (text == nullptr) text = L"";
    if (code == 100 && m_className == text) {
        add(code, Kind::OwnMarker, 0);
        return m_status;
    }
    const std::string value = encodeText(text);
    const std::size_t first = m_texts.size();
    std::string_view rest = value;
    do {
        m_texts.emplace_back(rest.substr(0, partSize(rest)));
        rest.remove_prefix(m_texts.back().size());
    } while (!rest.empty());
    add(code, Kind::Text, first, m_texts.size() - first);
    return m_status;
}

Acad::ErrorStatus PieceOutFiler::writeDouble(int code, double v) {
    add(code, Kind::Real, m_reals.size());
    m_reals.push_back(v);
    return m_status;
}

Acad::ErrorStatus PieceOutFiler::writePoint3d(int code, const AcGePoint3d& p) {
    add(code, Kind::Point, m_reals.size());
    m_reals.insert(m_reals.end(), {p.x, p.y, p.z});
    return m_status;
}

Acad::ErrorStatus PieceOutFiler::writeInt16(int code, Adesk::Int16 v) {
    add(code, Kind::Int16, m_integers.size());
    m_integers.push_back(static_cast<Adesk::UInt64>(v));
    return m_status;
}

Acad::ErrorStatus PieceOutFiler::writeInt32(int code, Adesk::Int32 v) {
    add(code, Kind::Int32, m_integers.size());
    m_integers.push_back(static_cast<Adesk::UInt64>(v));
    return m_status;
}

Acad::ErrorStatus PieceOutFiler::writeBool(int code, bool v) { return writeInt16(code, v ? 1 : 0); }

Acad::ErrorStatus PieceOutFiler::writeObjectId(int code, const AcDbObjectId& id) {
    add(code, Kind::Reference, m_integers.size());
    m_integers.push_back(handleOf ? handleOf(id) : id.handle().value());
    return m_status;
}

std::string PieceOutFiler::schema() const {
    std::string out;
    for (std::size_t i = 0; i < m_fields.size();) {
        const Field& field = m_fields[i];
        const bool single = field.kind == Kind::OwnMarker || field.count > 1;
        std::size_t end = i + 1;
        while (!single && end < m_fields.size() && m_fields[end].code == field.code &&
               m_fields[end].kind != Kind::OwnMarker && m_fields[end].count == 1)
            ++end;
        if (!out.empty()) out += ',';
        out += field.kind == Kind::OwnMarker ? "=" : std::to_string(field.code);
        if (field.count > 1) out += '/' + std::to_string(field.count);
        if (end - i > 1) out += 'x' + std::to_string(end - i);
        i = end;
    }
    return out;
}

std::size_t PieceOutFiler::xdataBytes() const {
    std::size_t size = 256 + schema().size();  // head, frame and the groups of the list
    for (const Field& field : m_fields) {
        switch (field.kind) {
            case Kind::OwnMarker:
                break;
            case Kind::Text:
                for (std::uint32_t i = 0; i < field.count; ++i)
                    size += 3 + writtenSize(m_texts[field.at + i]);
                break;
            case Kind::Point:
                size += 27;
                break;
            case Kind::Real:
            case Kind::Reference:
                size += 9;
                break;
            default:
                size += 5;
                break;
        }
    }
    return size;
}

void PieceOutFiler::writeValue(TagWriter& out, const Field& field, bool apart) const {
    switch (field.kind) {
        case Kind::OwnMarker:
            return;
        case Kind::Text:
            for (std::uint32_t i = 0; i < field.count; ++i)
                out.text(apart ? 1 : 1000, m_texts[field.at + i]);
            return;
        case Kind::Real:
            return out.real(apart ? 40 : 1040, m_reals[field.at]);
        case Kind::Point:
            return out.point(
                apart ? 10 : 1010,
                AcGePoint3d(m_reals[field.at], m_reals[field.at + 1], m_reals[field.at + 2]));
        case Kind::Int16:
            return out.integer(apart ? 70 : 1070, static_cast<long long>(m_integers[field.at]));
        case Kind::Int32:
            return out.integer(apart ? 90 : 1071, static_cast<long long>(m_integers[field.at]));
        case Kind::Reference:
            return out.handle(apart ? 330 : 1005, m_integers[field.at]);
    }
}

namespace {

/// The list of codes, cut behind commas where it is too long for one group.
void writeSchema(TagWriter& out, int code, std::string_view list) {
    while (list.size() > kMaxXdataText) {
        const std::size_t comma = list.rfind(',', kMaxXdataText - 1);
        out.text(code, list.substr(0, comma + 1));
        list.remove_prefix(comma + 1);
    }
    out.text(code, list);
}

}  // namespace

void PieceOutFiler::writeXdata(TagWriter& out, const PieceFrame& frame, bool fieldsApart) const {
    out.text(1001, kPieceApplication);
    out.meaning(1000, m_className);
    out.integer(1071, kPieceVersion);
    if (fieldsApart) {
        out.text(1000, "@");
    } else {
        writeSchema(out, 1000, schema());
        for (const Field& field : m_fields) writeValue(out, field, false);
    }
    out.text(1002, "{");
    out.point(1010, frame.origin);
    if (frame.degrees != 0.0 || frame.scale != 1.0) out.real(1040, frame.degrees);
    if (frame.scale != 1.0) out.real(1040, frame.scale);
    out.text(1002, "}");
}

void PieceOutFiler::writeXrecord(TagWriter& out) const {
    writeSchema(out, 1, schema());
    for (const Field& field : m_fields) writeValue(out, field, true);
}

}  // namespace prancheta::dxf
