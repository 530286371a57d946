// SPDX-License-Identifier: MIT
// The literal table of system variables.
#include "prancheta/database/variable_table.h"

#include <algorithm>
#include <limits>

#include "prancheta/geometry/angles.h"

namespace prancheta {
namespace {

constexpr double kPositive = std::numeric_limits<double>::min();
constexpr double kAny = 1e300;

VariableInfo integer(const wchar_t* name, short value, double minimum, double maximum,
                     VariableHome home = VariableHome::Session) {
    return {name, value, home, VariableAccess::ReadWrite, minimum, maximum};
}
VariableInfo drawingInteger(const wchar_t* name, short value, double minimum, double maximum) {
    return integer(name, value, minimum, maximum, VariableHome::Drawing);
}
VariableInfo real(const wchar_t* name, double value, double minimum = -kAny) {
    return {name, value, VariableHome::Drawing, VariableAccess::ReadWrite, minimum, kAny};
}
VariableInfo length(const wchar_t* name) {
    return {name, 0.0, VariableHome::Session, VariableAccess::ReadWrite, 0.0, kAny};
}
VariableInfo drawingText(const wchar_t* name, const wchar_t* value) {
    return {name, std::wstring(value), VariableHome::Drawing, VariableAccess::ReadWrite, -kAny,
            kAny};
}
VariableInfo readOnly(const wchar_t* name, VariableValue value,
                      VariableHome home = VariableHome::Session) {
    return {name, std::move(value), home, VariableAccess::ReadOnly, -kAny, kAny};
}
VariableInfo drawingPoint(const wchar_t* name, const AcGePoint3d& value) {
    return {name, value, VariableHome::Drawing, VariableAccess::ReadWrite, -kAny, kAny};
}
VariableInfo point(const wchar_t* name, const AcGePoint3d& value = {}, double minimum = -kAny) {
    return {name, value, VariableHome::Session, VariableAccess::ReadWrite, minimum, kAny};
}

}  // namespace

// Names, defaults and dimension sizes are those that users of such programs know; DIM* values are
// the metric ones of style Standard. What is switched while working (ORTHOMODE, ...) belongs to the
// session, so that it neither counts as a change of the drawing nor as a step of undo.
std::vector<VariableInfo> variableTable() {
    std::vector<VariableInfo> all = {
        readOnly(L"ACADVER", std::wstring(L"18.0s")),
        integer(L"AFLAGS", 0, 0, 15),
        real(L"ANGBASE", 0.0),
        drawingInteger(L"ANGDIR", 0, 0, 1),
        integer(L"APERTURE", 10, 1, 50),
        readOnly(L"AREA", 0.0),
        integer(L"ATTDIA", 0, 0, 1),
        integer(L"ATTREQ", 1, 0, 1),
        drawingInteger(L"AUNITS", 0, 0, 4),
        drawingInteger(L"AUPREC", 0, 0, 8),
        integer(L"AUTOSNAP", 63, 0, 63),
        drawingText(L"CECOLOR", L"BYLAYER"),
        real(L"CELTSCALE", 1.0, kPositive),
        drawingText(L"CELTYPE", L"ByLayer"),
        drawingInteger(L"CELWEIGHT", -1, -3, 211),
        drawingText(L"CLAYER", L"0"),
        readOnly(L"CMDACTIVE", short{0}),
        integer(L"CMDECHO", 1, 0, 1),
        readOnly(L"CMDNAMES", std::wstring()),
        length(L"CHAMFERA"),
        length(L"CHAMFERB"),
        {L"CTAB", std::wstring(L"Model")},
        integer(L"CURSORSIZE", 100, 1, 100),
        integer(L"CVPORT", 2, 1, 32767),
        drawingInteger(L"DIMADEC", -1, -1, 8),
        real(L"DIMASZ", 2.5, 0.0),
        drawingInteger(L"DIMCLRD", 0, 0, 256),
        drawingInteger(L"DIMCLRE", 0, 0, 256),
        drawingInteger(L"DIMCLRT", 0, 0, 256),
        drawingInteger(L"DIMDEC", 2, 0, 8),
        real(L"DIMDLI", 3.75, 0.0),
        drawingInteger(L"DIMDSEP", L',', 32, 255),
        real(L"DIMEXE", 1.25, 0.0),
        real(L"DIMEXO", 0.625, 0.0),
        real(L"DIMGAP", 0.625),
        real(L"DIMLFAC", 1.0),
        drawingText(L"DIMPOST", L""),
        real(L"DIMRND", 0.0, 0.0),
        drawingInteger(L"DIMSAH", 0, 0, 1),
        real(L"DIMSCALE", 1.0, 0.0),
        drawingInteger(L"DIMSE1", 0, 0, 1),
        drawingInteger(L"DIMSE2", 0, 0, 1),
        drawingText(L"DIMSTYLE", L"Standard"),
        drawingInteger(L"DIMTAD", 1, 0, 4),
        drawingInteger(L"DIMTIH", 0, 0, 1),
        drawingInteger(L"DIMTIX", 0, 0, 1),
        drawingInteger(L"DIMTOH", 0, 0, 1),
        real(L"DIMTSZ", 0.0, 0.0),
        real(L"DIMTXT", 2.5, kPositive),
        drawingText(L"DIMTXSTY", L"Standard"),
        drawingInteger(L"DIMZIN", 8, 0, 15),
        readOnly(L"DISTANCE", 0.0),
        integer(L"DRAGMODE", 2, 0, 2),
        readOnly(L"DWGNAME", std::wstring(L"Desenho1.dxf")),
        readOnly(L"DWGPREFIX", std::wstring()),
        integer(L"DYNMODE", 3, -3, 3),
        integer(L"EDGEMODE", 0, 0, 1),
        integer(L"ERRNO", 0, 0, 32767),
        integer(L"EXPERT", 0, 0, 5),
        readOnly(L"EXTMAX", AcGePoint3d(-1e20, -1e20, -1e20), VariableHome::Drawing),
        readOnly(L"EXTMIN", AcGePoint3d(1e20, 1e20, 1e20), VariableHome::Drawing),
        integer(L"FILEDIA", 1, 0, 1),
        length(L"FILLETRAD"),
        drawingInteger(L"FILLMODE", 1, 0, 1),
        integer(L"GRIDMODE", 0, 0, 1),
        point(L"GRIDUNIT", {10.0, 10.0, 0.0}, 0.0),
        integer(L"GRIPS", 1, 0, 1),
        integer(L"GRIPSIZE", 5, 1, 25),
        integer(L"HIGHLIGHT", 1, 0, 1),
        {L"HPANG", 0.0},
        integer(L"HPASSOC", 1, 0, 1),
        integer(L"HPDRAWORDER", 3, 0, 4),
        {L"HPNAME", std::wstring(L"ANSI31")},
        real(L"HPSCALE", 1.0, kPositive),
        drawingInteger(L"INSUNITS", 4, 0, 24),
        integer(L"ISAVEBAK", 1, 0, 1),
        readOnly(L"LASTANGLE", 0.0),
        point(L"LASTPOINT"),
        drawingPoint(L"LIMMAX", {420.0, 297.0, 0.0}),
        drawingPoint(L"LIMMIN", {}),
        integer(L"LISTAAUTO", 1, 0, 1),
        real(L"LTSCALE", 1.0, kPositive),
        drawingInteger(L"LUNITS", 2, 1, 5),
        drawingInteger(L"LUPREC", 4, 0, 8),
        integer(L"LWDISPLAY", 0, 0, 1),
        drawingInteger(L"MEASUREMENT", 1, 0, 1),
        {L"OFFSETDIST", -1.0},
        integer(L"OFFSETGAPTYPE", 0, 0, 0),
        {L"MODELO", std::wstring()},
        integer(L"ORTHOMODE", 0, 0, 1),
        integer(L"OSMODE", 4133, 0, 32767),
        integer(L"OSNAPCOORD", 2, 0, 2),
        integer(L"PECACOPIA", 1, 0, 1),
        readOnly(L"PERIMETER", 0.0),
        integer(L"PICKADD", 1, 0, 2),
        integer(L"PICKAUTO", 1, 0, 1),
        integer(L"PICKBOX", 3, 0, 50),
        integer(L"PICKFIRST", 1, 0, 1),
        {L"POLARANG", kPi / 2.0},
        drawingInteger(L"PSLTSCALE", 1, 0, 1),
        integer(L"REGENMODE", 1, 0, 1),
        readOnly(L"SCREENSIZE", AcGePoint3d()),
        {L"SNAPANG", 0.0},
        integer(L"SNAPMODE", 0, 0, 1),
        point(L"SNAPUNIT", {10.0, 10.0, 0.0}, 0.0),
        real(L"TEXTSIZE", 2.5, kPositive),
        drawingText(L"TEXTSTYLE", L"Standard"),
        integer(L"TILEMODE", 1, 0, 1),
        integer(L"TRIMMODE", 1, 0, 1),
        {L"TRUSTEDPATHS", std::wstring()},
        integer(L"UCSICON", 3, 0, 3),
        readOnly(L"UCSNAME", std::wstring(), VariableHome::Drawing),
        readOnly(L"UCSORG", AcGePoint3d(), VariableHome::Drawing),
        readOnly(L"UCSXDIR", AcGePoint3d(1.0, 0.0, 0.0), VariableHome::Drawing),
        readOnly(L"UCSYDIR", AcGePoint3d(0.0, 1.0, 0.0), VariableHome::Drawing),
        readOnly(L"VIEWCTR", AcGePoint3d()),
        readOnly(L"VIEWSIZE", 297.0),
        drawingInteger(L"WIPEOUTFRAME", 1, 0, 1),
    };
    std::sort(all.begin(), all.end(),
              [](const VariableInfo& a, const VariableInfo& b) { return a.name < b.name; });
    return all;
}

}  // namespace prancheta
