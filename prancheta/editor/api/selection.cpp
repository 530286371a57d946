// SPDX-License-Identifier: MIT
// Selection sets of the C-style interface.
#include "acedads.h"
#include "acutmem.h"
#include "geassign.h"
#include "prancheta/base/text.h"
#include "prancheta/base/wildcard.h"
#include "prancheta/dcl/dialog.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"
#include "prancheta/editor/scene.h"
#include "prancheta/editor/select.h"
#include "prancheta/editor/selection_sets.h"

namespace {

using prancheta::Editor;
using Ids = std::vector<AcDbObjectId>;

bool fits(const ACHAR* name, const ACHAR* patterns) {
    return name != nullptr && patterns != nullptr && prancheta::fitsWildcards(name, patterns);
}

const ACHAR* typeName(const AcDbEntity& entity) {
    for (const AcRxClass* c = entity.isA(); c != nullptr; c = c->myParent())
        if (c->dxfName() != nullptr) return c->dxfName();
    return nullptr;
}

/// Group codes that a filter may ask for.
bool knownFilter(const resbuf* filter) {
    for (; filter != nullptr; filter = filter->rbnext)
        if (filter->restype != 0 && filter->restype != 6 && filter->restype != 8 &&
            filter->restype != 62 && filter->restype != RTDXF0)
            return false;
    return true;
}

bool passes(const AcDbEntity& entity, const resbuf* filter) {
    for (; filter != nullptr; filter = filter->rbnext) {
        bool pass = false;
        if (filter->restype == 62) {
            pass = filter->resval.rint == static_cast<short>(entity.colorIndex());
        } else if (filter->restype == 6 || filter->restype == 8) {
            ACHAR* name = filter->restype == 6 ? entity.linetype() : entity.layer();
            pass = fits(name, filter->resval.rstring);
            acutDelString(name);
        } else {
            pass = fits(typeName(entity), filter->resval.rstring);
        }
        if (!pass) return false;
    }
    return true;
}

void applyFilter(Ids& ids, const resbuf* filter) {
    if (filter == nullptr) return;
    std::erase_if(ids, [&](const AcDbObjectId& id) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        return entity.openStatus() != Acad::eOk || !passes(*entity, filter);
    });
}

AcGePoint3d worldPoint(const Editor& editor, const void* point) {
    return editor.ucs() * asPnt3d(static_cast<const double*>(point));
}

std::vector<AcGePoint3d> worldPoints(const Editor& editor, const void* list) {
    std::vector<AcGePoint3d> points;
    for (auto* rb = static_cast<const resbuf*>(list); rb != nullptr; rb = rb->rbnext)
        points.push_back(editor.ucs() * AcGePoint3d(rb->resval.rpoint[X], rb->resval.rpoint[Y],
                                                    rb->resval.rpoint[Z]));
    return points;
}

prancheta::Selection askUser(Editor& editor, bool single) {
    prancheta::CommandRun run;
    const prancheta::CommandContext context(editor, run);
    prancheta::SelectOptions options;
    options.dropLocked = false;
    options.single = single;
    return editor.runner().runBlocking(run, prancheta::selectObjects(context, options));
}

/// RTNORM with what the mode gives, which may be nothing; RTERROR for a mode that is none.
int selectByMode(Editor& editor, std::wstring_view mode, const void* p1, const void* p2, Ids& ids) {
    const bool needsCorners = mode == L"w" || mode == L"c";
    if ((needsCorners && (p1 == nullptr || p2 == nullptr)) ||
        ((mode == L"wp" || mode == L"cp" || mode == L"f") && p1 == nullptr))
        return RTERROR;
    if (mode == L"x") {
        ids = prancheta::entitiesOfSpace(editor);
    } else if (mode == L"a" || mode == L"all") {
        ids = prancheta::allEntities(editor);
    } else if (mode == L"l") {
        const AcDbObjectId last = prancheta::lastEntity(editor);
        if (!last.isNull()) ids.push_back(last);
    } else if (mode == L"p") {
        ids = editor.selection().previous();
    } else if (mode == L"i") {
        ids = editor.selection().ids();
    } else if (mode == L"w") {
        ids = prancheta::entitiesInWindow(editor, worldPoint(editor, p1), worldPoint(editor, p2));
    } else if (mode == L"c") {
        ids = prancheta::entitiesCrossing(editor, worldPoint(editor, p1), worldPoint(editor, p2));
    } else if (mode == L"wp" || mode == L"cp") {
        ids = prancheta::entitiesInPolygon(editor, worldPoints(editor, p1), mode == L"cp");
    } else if (mode == L"f") {
        ids = prancheta::entitiesOnFence(editor, worldPoints(editor, p1));
    } else {
        return RTERROR;
    }
    return RTNORM;
}

}  // namespace

int acedSSGet(const ACHAR* mode, const void* p1, const void* p2, const resbuf* filter,
              ads_name set) {
    Editor* editor = Editor::current();
    if (editor == nullptr || set == nullptr || prancheta::dcl::openDialogs() > 0 ||
        !knownFilter(filter))
        return RTERROR;
    ads_name_clear(set);
    Ids ids;
    std::wstring word = prancheta::foldCase(mode != nullptr ? mode : L"");
    if (word.starts_with(L'_')) word.erase(0, 1);
    const std::size_t colon = std::min(word.find(L':'), word.size());
    const bool single = word.find(L's', colon) != word.npos;
    word.erase(colon);
    if (word.empty() && p1 != nullptr) {
        const AcDbObjectId hit = prancheta::entityAt(*editor, worldPoint(*editor, p1));
        if (!hit.isNull()) ids.push_back(hit);
    } else if (word.empty()) {
        prancheta::Selection selection = askUser(*editor, single);
        if (selection.status == RTCAN) return RTCAN;
        ids = std::move(selection.ids);
    } else if (const int status = selectByMode(*editor, word, p1, p2, ids); status != RTNORM) {
        return status;
    }
    std::erase_if(ids, [](const AcDbObjectId& id) { return id.isErased(); });
    applyFilter(ids, filter);
    if (ids.empty()) return RTERROR;
    if (word != L"p" && word != L"x") editor->selection().setPrevious(ids);
    editor->programs().selectionSets().add(std::move(ids), set);
    return RTNORM;
}

int acedSSLength(const ads_name set, Adesk::Int32* length) {
    Editor* editor = Editor::current();
    const Ids* ids = editor != nullptr ? editor->programs().selectionSets().find(set) : nullptr;
    if (ids == nullptr || length == nullptr) return RTERROR;
    *length = static_cast<Adesk::Int32>(ids->size());
    return RTNORM;
}

int acedSSName(const ads_name set, Adesk::Int32 index, ads_name entity) {
    Editor* editor = Editor::current();
    const Ids* ids = editor != nullptr ? editor->programs().selectionSets().find(set) : nullptr;
    if (ids == nullptr || entity == nullptr || index < 0 ||
        static_cast<std::size_t>(index) >= ids->size())
        return RTERROR;
    ads_name name;
    if (acdbGetAdsName(name, (*ids)[static_cast<std::size_t>(index)]) != Acad::eOk) return RTERROR;
    ads_name_set(name, entity);
    return RTNORM;
}

int acedSSAdd(const ads_name entity, const ads_name set, ads_name result) {
    Editor* editor = Editor::current();
    if (editor == nullptr || result == nullptr) return RTERROR;
    AcDbObjectId id;
    if (entity != nullptr && acdbGetObjectId(id, entity) != Acad::eOk) return RTERROR;
    Ids* ids = editor->programs().selectionSets().find(set);
    if (ids == nullptr) {
        editor->programs().selectionSets().add(id.isNull() ? Ids() : Ids{id}, result);
        return RTNORM;
    }
    if (!id.isNull() && std::find(ids->begin(), ids->end(), id) == ids->end()) ids->push_back(id);
    ads_name_set(set, result);
    return RTNORM;
}

int acedSSFree(const ads_name set) {
    Editor* editor = Editor::current();
    return editor != nullptr && editor->programs().selectionSets().free(set) ? RTNORM : RTERROR;
}
