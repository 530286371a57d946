// SPDX-License-Identifier: MIT
// The table of built-in commands.
#include "prancheta/editor/commands/table.h"

#include "accmd.h"

namespace prancheta {

namespace {

constexpr int kModal = ACRX_CMD_MODAL;
/// Takes what was selected before it.
constexpr int kPickset = ACRX_CMD_USEPICKSET;
/// Keeps that selection, too, and Enter does not repeat it.
constexpr int kGrips = kPickset | ACRX_CMD_REDRAW | ACRX_CMD_NOHISTORY;
/// Changes the picture or the session, not the drawing: runs inside other commands and undoes
/// nothing.
constexpr int kView = ACRX_CMD_TRANSPARENT | ACRX_CMD_NO_UNDO_MARKER;
/// Works on the undo log or replaces the drawing.
constexpr int kSession = ACRX_CMD_SESSION | ACRX_CMD_NO_UNDO_MARKER;

// clang-format off
constexpr BuiltInCommand kTable[] = {
    // global        local            flags     function
    {L"LINE",        L"LINHA",        kModal,   commands::line},
    {L"PLINE",       L"POLILINHA",    kModal,   commands::pline},
    {L"RECTANG",     L"RETANG",       kModal,   commands::rectang},
    {L"POLYGON",     L"POLIGONO",     kModal,   commands::polygon},
    {L"CIRCLE",      L"CÍRCULO",      kModal,   commands::circle},
    {L"ELLIPSE",     L"ELIPSE",       kModal,   commands::ellipse},
    {L"XLINE",       L"XLINHA",       kModal,   commands::xline},
    {L"RAY",         L"SEMIRRETA",    kModal,   commands::ray},
    {L"ARC",         L"ARCO",         kModal,   commands::arc},
    {L"DIVIDE",      L"DIVIDIR",      kModal,   commands::divide},
    {L"MEASURE",     L"MEDIR",        kModal,   commands::measure},
    {L"POINT",       L"PONTO",        kModal,   commands::point},
    {L"HATCH",       L"HACHURA",      kPickset, commands::hatch},
    {L"TEXT",        L"TEXTO",        kModal,   commands::text},
    {L"MTEXT",       L"TEXTOM",       kModal,   commands::mtext},
    {L"LEADER",      L"DIRETRIZ",     kModal,   commands::leader},
    {L"SOLDA",       L"SOLDA",        kModal,   commands::solda},
    {L"REVCLOUD",    L"NUVEMREV",     kModal,   commands::revcloud},
    {L"DIMLINEAR",   L"COTALINEAR",   kModal,   commands::dimlinear},
    {L"DIMALIGNED",  L"COTAALINHADA", kModal,   commands::dimaligned},
    {L"DIMCONTINUE", L"COTASERIE",    kModal,   commands::dimcontinue},
    {L"DIMBASELINE", L"COTALINBASE",  kModal,   commands::dimbaseline},
    {L"DIMRADIUS",   L"COTARAIO",     kModal,   commands::dimradius},
    {L"DIMDIAMETER", L"COTADIAM",     kModal,   commands::dimdiameter},
    {L"DIMANGULAR",  L"COTAANG",      kModal,   commands::dimangular},
    {L"DIMEDIT",     L"EDITARCOTA",   kPickset, commands::dimedit},
    {L"DIMTEDIT",    L"EDITARTEXTOCOTA", kModal, commands::dimtedit},
    {L"DIMSTYLE",    L"ESTILOCOTA",   kPickset, commands::dimstyleInWindow},
    {L"-DIMSTYLE",   L"-ESTILOCOTA",  kPickset, commands::dimstyle},
    {L"ESCALADESENHO", L"ESCALADESENHO", kModal, commands::escaladesenho},

    {L"MOVE",        L"MOVER",        kPickset, commands::move},
    {L"COPY",        L"COPIAR",       kPickset, commands::copy},
    {L"ROTATE",      L"ROTACIONAR",   kPickset, commands::rotate},
    {L"SCALE",       L"ESCALA",       kPickset, commands::scale},
    {L"MIRROR",      L"ESPELHAR",     kPickset, commands::mirror},
    {L"ARRAY",       L"MATRIZ",       kPickset, commands::array},
    {L"ALIGN",       L"ALINHAR",      kPickset, commands::align},
    {L"STRETCH",     L"ESTICAR",      kPickset, commands::stretch},
    {L"MATCHPROP",   L"COPIARPROP",   kPickset, commands::matchprop},
    {L"TRIM",        L"APARAR",       kPickset, commands::trimObjects},
    {L"EXTEND",      L"ESTENDER",     kPickset, commands::extendObjects},
    {L"BREAK",       L"QUEBRAR",      kModal,   commands::breakObject},
    {L"JOIN",        L"UNIR",         kPickset, commands::join},
    {L"PEDIT",       L"EDITPOL",      kPickset, commands::pedit},
    {L"LENGTHEN",    L"COMPRIMENTO",  kModal,   commands::lengthen},
    {L"OFFSET",      L"DESLOCAR",     kModal,   commands::offsetCurve},
    {L"FILLET",      L"CONCORD",      kModal,   commands::fillet},
    {L"CHAMFER",     L"CHANFRO",      kModal,   commands::chamfer},
    {L"ERASE",       L"APAGAR",       kPickset, commands::erase},
    {L"DRAWORDER",   L"ORDEM",        kPickset, commands::draworder},
    {L"EDITAPERFIL", L"EDITAPERFIL",  kPickset, commands::editaperfil},
    {L"DDEDIT",      L"EDITATEXTO",   kPickset, commands::ddedit},
    {L"FIND",        L"LOCALIZAR",    kPickset | ACRX_CMD_REDRAW, commands::find},
    {L"OOPS",        L"OOPS",         kModal,   commands::oops},
    {L"EXPLODE",     L"EXPLODIR",     kPickset, commands::explode},
    {L"BLOCK",       L"BLOCO",        kPickset, commands::block},
    {L"INSERT",      L"INSERIR",      kModal,   commands::insert},
    {L"WBLOCK",      L"WBLOCO",       kPickset, commands::wblock},
    {L"ATTDEF",      L"DEFATRIB",     kModal,   commands::attdef},
    {L"ATTEDIT",     L"EDITAATRIB",   kPickset, commands::attedit},
    {L"COPYCLIP",    L"COPIAREC",     kGrips,   commands::copyclip},
    {L"CUTCLIP",     L"RECORTAR",     kPickset, commands::cutclip},
    {L"COPYBASE",    L"COPIABASE",    kGrips,   commands::copybase},
    {L"PASTECLIP",   L"COLAR",        kModal,   commands::pasteclip},
    {L"GRIPS",       L"ALÇAS",        kGrips,   commands::grips},

    {L"U",           L"U",            kSession, commands::u},
    {L"UNDO",        L"DESFAZER",     kSession, commands::undo},
    {L"REDO",        L"REFAZER",      kSession, commands::redo},
    {L"MREDO",       L"MREFAZER",     kSession, commands::mredo},

    {L"ZOOM",        L"ZOOM",         kView,    commands::zoom},
    {L"PAN",         L"PAN",          kView,    commands::pan},
    {L"REDRAW",      L"REDESENHA",    kView,    commands::redraw},
    {L"REGEN",       L"REGEN",        ACRX_CMD_NO_UNDO_MARKER, commands::regen},

    {L"UCS",         L"SCP",          kModal,   commands::ucs},
    {L"LAYER",       L"CAMADA",       kModal,   commands::layerInWindow},
    {L"-LAYER",      L"-CAMADA",      kModal,   commands::layer},
    {L"AUDIT",       L"AUDITAR",      kModal,   commands::audit},
    {L"PURGE",       L"LIMPAR",       kModal,   commands::purge},
    {L"LIGARPECAS",  L"LIGARPECAS",   kModal,   commands::ligarpecas},
    {L"STYLE",       L"ESTILO",       kModal,   commands::styleInWindow},
    {L"-STYLE",      L"-ESTILO",      kModal,   commands::style},
    {L"QSELECT",     L"SELRAP",       kGrips,   commands::qselect},
    {L"LAYISO",      L"ISOLACAMADA",  kPickset, commands::layiso},
    {L"LAYUNISO",    L"DESISOLACAMADA", kModal, commands::layuniso},
    {L"LAYOFF",      L"DESLIGACAMADA", kPickset, commands::layoff},
    {L"LAYFRZ",      L"CONGELACAMADA", kPickset, commands::layfrz},
    {L"LAYLCK",      L"BLOQUEIACAMADA", kPickset, commands::laylck},
    {L"LAYMCUR",     L"CAMADAATUAL",  kPickset, commands::laymcur},
    {L"LAYERP",      L"CAMADAANTERIOR", kModal, commands::layerp},
    {L"LIST",        L"LISTA",        kPickset | ACRX_CMD_NO_UNDO_MARKER, commands::list},
    {L"PROPERTIES",  L"PROPRIEDADES", kGrips | ACRX_CMD_NO_UNDO_MARKER, commands::properties},
    {L"AREA",        L"AREA",         kPickset | ACRX_CMD_NO_UNDO_MARKER, commands::area},
    {L"DIST",        L"DIST",         kView,    commands::dist},
    {L"SETVAR",      L"DEFVAR",       ACRX_CMD_TRANSPARENT, commands::setvar},

    {L"NEW",         L"NOVO",         kSession, commands::newDrawing},
    {L"OPEN",        L"ABRIR",        kSession, commands::open},
    {L"RECOVER",     L"RECUPERAR",    kSession, commands::recover},
    {L"QSAVE",       L"SALVAR",       kSession, commands::qsave},
    {L"SAVE",        L"GRAVAR",       kSession, commands::save},
    {L"SAVEAS",      L"SALVARCOMO",   kSession, commands::saveas},
    {L"LAYOUT",      L"LAYOUT",       kModal,   commands::layout},
    {L"FOLHA",       L"FOLHA",        kModal,   commands::folha},
    {L"DETALHE",     L"DETALHE",      kModal,   commands::detalhe},
    {L"MVIEW",       L"MVIEW",        kModal,   commands::mview},
    {L"VPLAYER",     L"VPLAYER",      kModal,   commands::vplayer},
    {L"MSPACE",      L"MSPACE",       ACRX_CMD_NO_UNDO_MARKER, commands::mspace},
    {L"PSPACE",      L"PSPACE",       ACRX_CMD_NO_UNDO_MARKER, commands::pspace},

    {L"PLOT",        L"PLOTAR",       kModal,   commands::plotInWindow},
    {L"-PLOT",       L"-PLOTAR",      kModal,   commands::plot},
    {L"ARX",         L"ARX",          kSession, commands::arx},
    {L"HELP",        L"AJUDA",        kView,    commands::help},
    {L"SCRIPT",      L"SCRIPT",       kSession, commands::script},
    {L"RSCRIPT",     L"RSCRIPT",      kSession, commands::rscript},
    {L"RESUME",      L"RETOMAR",      kView,    commands::resume},
    {L"DELAY",       L"ATRASO",       kView,    commands::delay},
    {L"QUIT",        L"SAIR",         kSession, commands::quit},
};
// clang-format on

}  // namespace

std::span<const BuiltInCommand> builtInCommands() { return kTable; }

}  // namespace prancheta
