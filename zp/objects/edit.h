// SPDX-License-Identifier: MIT
// Changing the values of a piece that stands in a drawing, with all that is tied to it.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "perfis/entities/zpchapa.h"
#include "zp/objects/peca.h"

namespace zp::edit {

/// All that a constructor gives: values, view, length, role. What was derived of them is made anew.
void copyValues(const Peca& from, Peca& target);

/// The same piece in its place, but in no drawing and tied to nothing; null when it cannot be made.
std::unique_ptr<ZpObject> copyOf(const ZpObject& peca);

secao::Kind kindOf(const ZpObject& peca);
/// Constructor values as they are now, by role.
secao::RoleValues valuesOf(const ZpObject& peca);
/// Made with the constructor of two points.
bool fromTwoPoints(const ZpObject& peca);
/// What is tied to a piece and still in the drawing, in the order in which it was tied.
std::vector<AcDbObjectId> cotasOf(const ZpObject& peca);
std::vector<AcDbObjectId> chapasOf(const ZpObject& peca);
/// The piece, open for write, keeps anew where its plates stand and how large they are.
void learnChapas(ZpObject& peca);
/// The piece that this one follows; null when it follows none.
AcDbObjectId ownerOf(const ZpObject& peca);
/// True for a plate of that piece.
bool isChapaOf(AcDbObjectId id, AcDbObjectId peca);

inline constexpr const wchar_t* kLocked =
    L"A camada da peça está bloqueada; desbloqueie-a para alterar.";
/// What nobody may change: false, too, when the layer cannot be read.
bool onLockedLayer(const AcDbEntity& entity);
bool onLockedLayer(AcDbObjectId entity);

/// `fresh` takes the values of `peca` that are not those of `rule`, which is how a rule makes such
/// a piece: the user's own ones. Not length, turn, type, mass and area. All three are of one class.
void keepOwnValues(const ZpObject& peca, const ZpObject& rule, ZpObject& fresh);

/// Values of one class that make the same section of single shapes: neither length, turn, mass and
/// area nor the distance of two shapes tell it.
bool sameShape(const secao::RoleValues& a, const secao::RoleValues& b);

/// The dimensions tied to a piece go along with the cuts that its ends get: it becomes `after`,
/// which has its sizes and view.
void carryCotas(Peca& peca, const Peca& after);

/// The four limit points of a piece, in world coordinates.
struct Faces {
    AcGePoint3d f[4];
};
Faces facesOf(const ZpObject& peca);
/// The same of the picture itself: with oblique ends its corners, not those of its box.
Faces cornersOf(const ZpObject& peca);
/// Box of its picture in another piece's frame, mm.
secao::Bounds boxIn(const Frame& frame, const ZpObject& peca);

/// Values, length of the axis, place, cuts and lacing of a piece before it was changed.
struct Former {
    secao::RoleValues values;
    double comprimento = 0.0;
    AcGePoint3d start;
    double angle = 0.0;
    std::array<Corte, 2> cortes;
    Lacing lacing;
};
Former formerOf(const ZpObject& peca);

/// Points of a dimension in the frame of its piece: what it measures and a point on its line.
struct Cota {
    AcGePoint3d from;
    AcGePoint3d to;
    AcGePoint3d line;
};
/// A dimension that a rule made, and how the same rule makes it after the change.
struct ChangedCota {
    Cota before;
    Cota after;
};

/// One change of one piece. From the construction to finish() the piece is open for write and
/// stands straight: direction 0, not mirrored, its start where it is. What is tied to it follows in
/// finish().
class Edit {
public:
    explicit Edit(AcDbObjectId peca);
    ~Edit();
    Edit(const Edit&) = delete;
    Edit& operator=(const Edit&) = delete;

    /// Of opening the piece, eOnLockedLayer for what nobody may change; nothing else may be called
    /// unless eOk.
    Acad::ErrorStatus status() const { return m_status; }
    ZpObject& peca() { return *m_peca; }
    /// Plates tied to the piece when the change began.
    const std::vector<AcDbObjectId>& chapas() const { return m_chapas; }

    /// The piece takes values, view, length, role and series of `model`, which is of its class and
    /// in no drawing. Dimensions that fit an entry of `cotas` go where that says, the others with
    /// the edges of the picture that they measure; plates stay, those at the end at the end.
    /// eNotThatKindOfClass, and no change, for another class.
    Acad::ErrorStatus remake(const ZpObject& model, std::span<const ChangedCota> cotas = {});
    /// A plate of chapas() takes values and place of `model`. False when it cannot be opened.
    bool remakeChapa(AcDbObjectId chapa, const ZpChapa& model);
    /// Erases something tied to the piece; not what lies on a locked layer, which the user is told.
    void eraseLinked(AcDbObjectId linked);

    /// Puts the piece back into its direction, closes it, puts what is tied to it in its place and
    /// tells the listeners.
    void finish();

private:
    void close();

    ZpObject* m_peca = nullptr;
    AcDbObjectId m_id;
    Acad::ErrorStatus m_status;
    double m_angle = 0.0;
    bool m_mirrored = false;
    Former m_before;
    std::vector<AcDbObjectId> m_chapas;
    std::vector<Former> m_chapasBefore;
};

/// A piece that was changed, and what it was.
struct Change {
    AcDbObjectId peca;
    Former before;
};

/// Hears of pieces whose values were changed, plates included. `before` is what the piece was.
class Listener {
public:
    virtual ~Listener() = default;
    virtual void edited(AcDbObjectId peca, const Former& before) = 0;
    /// One command changed these pieces in their drawing, without a question whom that is meant
    /// for. Where ends moved it comes after edited() of each; what the listener changes itself is
    /// told in another call.
    virtual void changedAlone(const std::vector<Change>& changes) { (void)changes; }
    /// Why `peca`, open for read, may not become `model`, for the user; empty when it may.
    virtual std::wstring refusal(const ZpObject& peca, const ZpObject& model) {
        (void)peca, (void)model;
        return {};
    }
    /// Others that become what `model` makes of `peca`, open for read, as the user is asked;
    /// nothing when he gives up, and then nothing is to change.
    virtual std::optional<std::vector<AcDbObjectId>> alike(const ZpObject& peca,
                                                           const ZpObject& model) {
        (void)peca, (void)model;
        return std::vector<AcDbObjectId>();
    }
};
/// Tells all of them.
void notify(AcDbObjectId peca, const Former& before);
void notifyChangedAlone(const std::vector<Change>& changes);
/// What the listeners together say.
std::optional<std::vector<AcDbObjectId>> alikeOf(const ZpObject& peca, const ZpObject& model);
/// Why `peca`, open for read, may not become `model`: its ends, or what the first listener that
/// refuses says; empty when it may.
std::wstring refusalOf(const ZpObject& peca, const ZpObject& model);
/// Another view of a piece: the piece, its plates and dimensions; ids are null where none was made.
struct DrawnVista {
    AcDbObjectId peca;
    std::vector<AcDbObjectId> chapas;
    std::vector<AcDbObjectId> cotas;
};
/// Draws a piece as it is seen from elsewhere, along X from `start`, dimensioned when `cotas` is
/// set.
using VistaMaker = DrawnVista (*)(AcDbObjectId peca, ZpObject::ZpVistas vista,
                                  const AcGePoint3d& start, bool cotas);
/// The module that draws pieces puts it here; null: nobody draws.
void setVistaMaker(VistaMaker maker);
VistaMaker vistaMaker();

/// The listener belongs to the caller, who takes it away before it goes.
void addListener(Listener* listener);
void removeListener(Listener* listener);

}  // namespace zp::edit
