// SPDX-License-Identifier: MIT
// Moved ends of pieces: what may be, what follows.
#include "zp/objects/ends.h"

#include <cmath>
#include <memory>
#include <utility>

#include "acutads.h"
#include "zp/objects/member.h"
#include "zp/objects/watch.h"

namespace zp::ends {
namespace {

/// A shorter piece is none, mm.
constexpr double kShortest = 1e-6;

/// How far the start went along the axis, mm; where only it went, by what the piece became shorter.
double startMoved(const Peca& now, const edit::Former& before) {
    const AcGeVector3d x = direction(before.angle);
    if (now.end().distanceTo(before.start + x * before.comprimento) <= kShortest)
        return before.comprimento - now.comprimento;
    return (now.start - before.start).dotProduct(x);
}

}  // namespace

Ends endsOf(const Peca& p) { return {p.start, p.end(), p.cortes}; }

Ends between(const Peca& p, double from, double to) {
    const AcGeVector3d x = direction(p.angle);
    return {p.start + x * from, p.start + x * to, p.cortes};
}

const ACHAR* whyNone(const Peca& p) {
    if (p.chapa()) return L"Uma chapa não tem comprimento a aparar; mude as medidas dela.";
    return p.inSecao() ? L"Uma seção não tem comprimento a aparar." : nullptr;
}

bool put(Peca& p, const Ends& fresh) {
    const AcGeVector3d axis(fresh.end.x - fresh.start.x, fresh.end.y - fresh.start.y, 0.0);
    if (!(axis.length() > kShortest) || !std::isfinite(axis.length())) return false;
    // A change of length alone leaves the direction as it is, to the last digit.
    const AcGeVector3d x = direction(p.angle);
    const bool turned = axis.crossProduct(x).length() > 1e-12 * axis.length();
    if (turned || axis.dotProduct(x) < 0.0) p.angle = angleOf(axis);
    p.start = fresh.start;
    p.cortes = fresh.cortes;
    p.setComprimento(axis.length());
    return true;
}

std::wstring refusal(const ZpObject& peca, const Ends& fresh) {
    const Peca& p = Access::of(peca);
    if (const ACHAR* const reason = whyNone(p)) return reason;
    const std::unique_ptr<ZpObject> model = edit::copyOf(peca);
    if (!model) return L"A peça não pode ser copiada.";
    if (!put(Access::of(*model), fresh)) return L"Não sobraria nada da peça.";
    return edit::refusalOf(peca, *model);
}

void move(ZpObject& peca, const Ends& fresh) {
    peca.assertWriteEnabled();
    watch::movesEnd(peca.objectId(), edit::formerOf(peca));
    Peca& p = Access::of(peca);
    if (fresh.cortes != p.cortes)
        if (const std::unique_ptr<ZpObject> model = edit::copyOf(peca)) {
            Access::of(*model).cortes = fresh.cortes;
            edit::carryCotas(p, Access::of(*model));
        }
    (void)put(p, fresh);  // as was asked
    peca.recordGraphicsModified();
}

bool alike(const ZpObject& a, const ZpObject& b) {
    const Peca& p = Access::of(a);
    const Peca& q = Access::of(b);
    return std::abs(p.comprimento - q.comprimento) <= kShortest && p.cortes == q.cortes &&
           member::sameSizes(a, b);
}

namespace {

/// What the view is laced with as the piece is by now. A section does not tell how plates are
/// spread: then these grow with their height.
Lacing lacingLike(const ZpObject& view, const ZpObject& peca) {
    const Lacing& shown = member::of(peca).lacing;
    if (!Access::of(view).inSecao() && !Access::of(peca).inSecao()) return shown;
    Lacing lacing = member::of(view).lacing;
    if (!(lacing.A > 0.0) || !(shown.A > 0.0)) return lacing;
    const double k = shown.A / lacing.A;
    lacing.A = shown.A;
    lacing.C *= k;
    lacing.L1 *= k;
    return lacing;
}

/// The view as it is to be, in no drawing and where it stands.
std::unique_ptr<ZpObject> shownLike(const ZpObject& view, const ZpObject& peca) {
    std::unique_ptr<ZpObject> model = edit::copyOf(view);
    if (!model) return nullptr;
    const Peca& shown = Access::of(peca);
    Peca& p = Access::of(*model);
    const secao::Roles* const roles = p.order();
    for (std::size_t i = 0; roles != nullptr && i < p.count; ++i) {
        const secao::Role role = (*roles)[i];
        const double* const value = role != secao::Role::Giro ? shown.value(role) : nullptr;
        if (value != nullptr) p.given[i] = p.actual[i] = *value;
    }
    p.tipoBarra = shown.tipoBarra;
    p.series = shown.series;
    p.commercial = shown.commercial;
    p.cachedSecao.reset();
    p.cortes = shown.cortes;
    p.setComprimento(shown.comprimento);
    member::lace(*model, lacingLike(view, peca));
    return model;
}

}  // namespace

std::wstring showLike(AcDbObjectId id, const ZpObject& peca, const edit::Former& before) {
    std::unique_ptr<ZpObject> model;
    {
        const AcDbObjectPointer<ZpObject> view(id, AcDb::kForRead);
        if (view.object() == nullptr) return L"ela não pode ser aberta.";
        model = shownLike(*view.object(), peca);
        if (!model) return L"ela não pode ser copiada.";
        if (std::wstring reason = edit::refusalOf(*view.object(), *model); !reason.empty())
            return reason;
    }
    const Peca& p = Access::of(*model);
    edit::Edit edit(id);
    if (edit.status() != Acad::eOk) return L"ela não pode ser alterada agora.";
    (void)edit.remake(*model);  // a copy is of the same class
    member::lace(edit.peca(), member::of(*model).lacing);
    if (!p.inSecao())
        Access::of(edit.peca()).start += direction(p.angle) * startMoved(Access::of(peca), before);
    edit.finish();
    return {};
}

void Moved::note(AcDbObjectId peca, const edit::Former& before, What what) {
    if (!m_noted.insert(peca.asOldId()).second) return;
    m_changes.push_back({peca, before});
    if (what == What::Whole) m_whole.insert(peca.asOldId());
}

void Moved::refuse(const std::wstring& reason) {
    if (!reason.empty()) m_reasons.insert(reason);
}

void Moved::notify() {
    m_noted.clear();
    const std::set<Adesk::LongPtr> whole = std::exchange(m_whole, {});
    std::vector<edit::Change> changes = std::exchange(m_changes, {});
    std::erase_if(changes, [](const edit::Change& c) { return c.peca.isErased(); });
    for (const edit::Change& c : changes)
        if (!whole.contains(c.peca.asOldId())) edit::notify(c.peca, c.before);
    edit::notifyChangedAlone(changes);
}

void Moved::say() {
    for (const std::wstring& reason : std::exchange(m_reasons, {}))
        acutPrintf(L"\n%ls\n", reason.c_str());
}

}  // namespace zp::ends
