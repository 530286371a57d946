// SPDX-License-Identifier: MIT
// A piece's record: one order of fields for both filers and for texts.
#pragma once

#include "zp/objects/copies.h"
#include "zp/objects/peca.h"

namespace zp {

/// Written first; a reader refuses what is newer. A piece with square ends has version 3, one that
/// keeps nothing of a table either 2, one of which nothing is known in the job either 1.
inline constexpr Adesk::Int16 kPecaVersion = 4;

class DwgWriter {
public:
    explicit DwgWriter(AcDbDwgFiler& filer) : m_filer(filer) {}
    void integer(int v) { m_filer.writeInt16(static_cast<Adesk::Int16>(v)); }
    void real(double v) { m_filer.writeDouble(v); }
    void point(const AcGePoint3d& p) { m_filer.writePoint3d(p); }
    void id(const AcDbSoftPointerId& i) { m_filer.writeSoftPointerId(i); }
    void text(const std::wstring& t) { m_filer.writeString(t.c_str()); }

private:
    AcDbDwgFiler& m_filer;
};

class DwgReader {
public:
    explicit DwgReader(AcDbDwgFiler& filer) : m_filer(filer) {}
    bool integer(int& v);
    bool real(double& v) { return m_filer.readDouble(&v) == Acad::eOk; }
    bool point(AcGePoint3d& p) { return m_filer.readPoint3d(&p) == Acad::eOk; }
    bool id(AcDbSoftPointerId& i) { return m_filer.readSoftPointerId(&i) == Acad::eOk; }
    bool text(std::wstring& t);

private:
    AcDbDwgFiler& m_filer;
};

/// 70 whole numbers, 40 reals, 10 points, 330 references, 1 texts.
class DxfWriter {
public:
    explicit DxfWriter(AcDbDxfFiler& filer) : m_filer(filer) {}
    void integer(int v) { m_filer.writeInt16(AcDb::kDxfInt16, static_cast<Adesk::Int16>(v)); }
    void real(double v) { m_filer.writeDouble(AcDb::kDxfReal, v); }
    void point(const AcGePoint3d& p) { m_filer.writePoint3d(AcDb::kDxfXCoord, p); }
    void id(const AcDbSoftPointerId& i) { m_filer.writeObjectId(AcDb::kDxfSoftPointerId, i); }
    void text(const std::wstring& t) { m_filer.writeString(AcDb::kDxfText, t.c_str()); }

private:
    AcDbDxfFiler& m_filer;
};

class DxfReader {
public:
    explicit DxfReader(AcDbDxfFiler& filer) : m_filer(filer) {}
    bool integer(int& v);
    bool real(double& v);
    bool point(AcGePoint3d& p);
    bool id(AcDbSoftPointerId& i);
    bool text(std::wstring& t);

private:
    bool item(int code, resbuf& value);
    AcDbDxfFiler& m_filer;
};

/// The same as words; a reference is none of them.
class TextWriter {
public:
    explicit TextWriter(copies::WordWriter& words) : m_words(words) {}
    void integer(int v) { m_words.integer(v); }
    void real(double v) { m_words.real(v); }
    void point(const AcGePoint3d& p) { m_words.real(p.x), m_words.real(p.y), m_words.real(p.z); }
    void id(const AcDbSoftPointerId&) {}
    void text(const std::wstring& t) { m_words.text(t); }

private:
    copies::WordWriter& m_words;
};

class TextReader {
public:
    explicit TextReader(copies::WordReader& words) : m_words(words) {}
    bool integer(int& v) { return m_words.integer(v); }
    bool real(double& v) { return m_words.real(v); }
    bool point(AcGePoint3d& p) {
        return m_words.real(p.x) && m_words.real(p.y) && m_words.real(p.z);
    }
    bool id(AcDbSoftPointerId&) { return true; }
    bool text(std::wstring& t) { return m_words.text(t); }

private:
    copies::WordReader& m_words;
};

enum class ReadResult { Good, Newer, Bad };

/// What was read of a record; the piece itself is untouched until it is complete.
template <class Reader>
ReadResult readPeca(Reader& reader, Peca& peca, int& version);

template <class Writer>
void writePeca(Writer& writer, const Peca& peca);

/// False for values that no command and no property sheet give a piece.
bool possibleMedidas(const Peca& p);

}  // namespace zp
