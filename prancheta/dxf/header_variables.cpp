// SPDX-License-Identifier: MIT
// Variables of section HEADER.
#include "prancheta/dxf/header_variables.h"

#include <algorithm>

#include "prancheta/base/text.h"
#include "prancheta/graphics/palette.h"

namespace prancheta::dxf {
namespace {

constexpr HeaderVariable kVariables[] = {
    {"$INSUNITS", 70},
    {"$MEASUREMENT", 70},
    {"$LIMMIN", 10},
    {"$LIMMAX", 10},
    {"$LTSCALE", 40},
    {"$FILLMODE", 70},
    {"$TEXTSTYLE", 7},
    {"$CLAYER", 8},
    {"$CELTYPE", 6},
    {"$CECOLOR", 62},
    {"$CELWEIGHT", 370},
    {"$CELTSCALE", 40},
    {"$DIMSCALE", 40},
    {"$DIMASZ", 40, true},
    {"$DIMEXO", 40, true},
    {"$DIMDLI", 40, true},
    {"$DIMEXE", 40, true},
    {"$DIMTXT", 40, true},
    {"$DIMGAP", 40, true},
    {"$DIMTIH", 70, true},
    {"$DIMTOH", 70, true},
    {"$DIMTAD", 70, true},
    {"$DIMZIN", 70, true},
    {"$DIMDEC", 70, true},
    {"$DIMDSEP", 70, true},
    {"$DIMLFAC", 40, true},
    {"$DIMRND", 40, true},
    {"$DIMTSZ", 40, true},
    {"$DIMTIX", 70, true},
    {"$DIMADEC", 70, true},
    {"$DIMSE1", 70, true},
    {"$DIMSE2", 70, true},
    {"$DIMSAH", 70, true},
    {"$DIMCLRD", 70, true},
    {"$DIMCLRE", 70, true},
    {"$DIMCLRT", 70, true},
    {"$DIMPOST", 1, true},
    {"$DIMTXSTY", 7, true},
    {"$DIMSTYLE", 2},
    {"$LUNITS", 70},
    {"$LUPREC", 70},
    {"$AUNITS", 70},
    {"$AUPREC", 70},
    {"$ANGBASE", 50},
    {"$ANGDIR", 70},
    {"$TEXTSIZE", 40},
    {"$PSLTSCALE", 70},
    {"$UCSNAME", 2},
    {"$UCSORG", 10, false, true},
    {"$UCSXDIR", 10, false, true},
    {"$UCSYDIR", 10, false, true},
};

constexpr std::string_view kWritersOwn[] = {"$ACADVER", kCodePage, "$HANDSEED",
                                            "$EXTMIN",  "$EXTMAX", "$ACADMAINTVER"};

// Known to releases before 2000 only.
constexpr std::string_view kGone[] = {
    "$ATTDIA",    "$ATTREQ",     "$AXISMODE", "$AXISUNIT",  "$BLIPMODE",    "$COORDS",
    "$DELOBJ",    "$DIMFIT",     "$DIMUNIT",  "$DRAGMODE",  "$FASTZOOM",    "$FLATLAND",
    "$GRIDMODE",  "$GRIDUNIT",   "$HANDLING", "$HIGHLIGHT", "$MENU",        "$OSMODE",
    "$PICKSTYLE", "$SAVEIMAGES", "$SNAPANG",  "$SNAPBASE",  "$SNAPISOPAIR", "$SNAPMODE",
    "$SNAPSTYLE", "$SNAPUNIT",   "$VIEWCTR",  "$VIEWDIR",   "$VIEWSIZE",
};

// First known to releases after 2000; the year's release in front.
struct NewVariable {
    std::string_view since;
    std::string_view name;
};
constexpr NewVariable kNew[] = {
    {"AC1018", "$SORTENTS"},
    {"AC1018", "$INDEXCTL"},
    {"AC1018", "$HIDETEXT"},
    {"AC1018", "$XCLIPFRAME"},
    {"AC1018", "$HALOGAP"},
    {"AC1018", "$OBSCOLOR"},
    {"AC1018", "$OBSLTYPE"},
    {"AC1018", "$INTERSECTIONDISPLAY"},
    {"AC1018", "$INTERSECTIONCOLOR"},
    {"AC1018", "$DIMASSOC"},
    {"AC1018", "$PROJECTNAME"},
    {"AC1021", "$CAMERADISPLAY"},
    {"AC1021", "$LENSLENGTH"},
    {"AC1021", "$CAMERAHEIGHT"},
    {"AC1021", "$STEPSPERSEC"},
    {"AC1021", "$STEPSIZE"},
    {"AC1021", "$3DDWFPREC"},
    {"AC1021", "$PSOLWIDTH"},
    {"AC1021", "$PSOLHEIGHT"},
    {"AC1021", "$LOFTANG1"},
    {"AC1021", "$LOFTANG2"},
    {"AC1021", "$LOFTMAG1"},
    {"AC1021", "$LOFTMAG2"},
    {"AC1021", "$LOFTPARAM"},
    {"AC1021", "$LOFTNORMALS"},
    {"AC1021", "$LATITUDE"},
    {"AC1021", "$LONGITUDE"},
    {"AC1021", "$NORTHDIRECTION"},
    {"AC1021", "$TIMEZONE"},
    {"AC1021", "$LIGHTGLYPHDISPLAY"},
    {"AC1021", "$TILEMODELIGHTSYNCH"},
    {"AC1021", "$CMATERIAL"},
    {"AC1021", "$SOLIDHIST"},
    {"AC1021", "$SHOWHIST"},
    {"AC1021", "$DWFFRAME"},
    {"AC1021", "$DGNFRAME"},
    {"AC1021", "$REALWORLDSCALE"},
    {"AC1021", "$INTERFERECOLOR"},
    {"AC1021", "$INTERFEREOBJVS"},
    {"AC1021", "$INTERFEREVPVS"},
    {"AC1021", "$CSHADOW"},
    {"AC1021", "$SHADOWPLANELOCATION"},
    {"AC1021", "$DIMFXL"},
    {"AC1021", "$DIMFXLON"},
    {"AC1021", "$DIMJOGANG"},
    {"AC1021", "$DIMTFILL"},
    {"AC1021", "$DIMTFILLCLR"},
    {"AC1021", "$DIMARCSYM"},
    {"AC1021", "$DIMLTYPE"},
    {"AC1021", "$DIMLTEX1"},
    {"AC1021", "$DIMLTEX2"},
    {"AC1024", "$DIMTXTDIRECTION"},
    {"AC1018", "$LASTSAVEDBY"},
    {"AC1027", "$REQUIREDVERSIONS"},
};

}  // namespace

std::span<const HeaderVariable> headerVariables() { return kVariables; }

const HeaderVariable* headerVariable(std::string_view name) {
    for (const HeaderVariable& variable : kVariables)
        if (name == variable.name) return &variable;
    return nullptr;
}

bool isWritersOwn(std::string_view name) {
    return std::find(std::begin(kWritersOwn), std::end(kWritersOwn), name) != std::end(kWritersOwn);
}

bool isUnknownTo(std::string_view acadVersion, std::string_view name) {
    if (std::find(std::begin(kGone), std::end(kGone), name) != std::end(kGone)) return true;
    return std::any_of(std::begin(kNew), std::end(kNew), [&](const NewVariable& v) {
        return v.name == name && acadVersion < v.since;
    });
}

std::wstring colorText(int index) {
    if (index == 256) return L"BYLAYER";
    return index == 0 ? L"BYBLOCK" : std::to_wstring(index);
}

int colorIndex(std::wstring_view text) {
    double number = 0.0;
    if (equalNoCase(text, L"BYBLOCK")) return 0;
    if (text.starts_with(L"RGB:"))
        if (const auto color = readRgb(text.substr(4))) return nearestIndex(*color);
    return parseNumber(text, number) ? static_cast<int>(number) : 256;
}

}  // namespace prancheta::dxf
