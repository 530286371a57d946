// SPDX-License-Identifier: MIT
// A check's part on rows and marks: whether lists, pieces and drawn marks say the same.
#include <algorithm>
#include <cmath>
#include <functional>
#include <unordered_map>

#include "texts/number.h"
#include "zp/matlist/check_survey.h"
#include "zp/matlist/columns.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/zpmarca.h"
#include "zp/objects/member.h"

namespace zp::matlist {
namespace {

/// A mark and a drawn piece that bears it.
struct Named {
    std::wstring marca;
    AcDbObjectId peca;
};

bool near(double a, double b) {
    return std::abs(a - b) <= 1e-6 * std::max({1.0, std::abs(a), std::abs(b)});
}

/// A record that was written and read again says the same.
bool saysTheSame(const Linha& a, const Linha& b) {
    return a.quantidade == b.quantidade && a.descricao == b.descricao &&
           a.dimensoes == b.dimensoes && a.material == b.material &&
           near(a.comprimento, b.comprimento) && near(a.pesoTotal, b.pesoTotal);
}

/// "U 200x75x3, 2162 mm, ACO, 4 peças, 76,80 kg".
std::wstring allWordsOf(const Linha& row) {
    return wordsOf(row) + L", " + row.material + L", " + std::to_wstring(row.quantidade) +
           (row.quantidade == 1 ? L" peça, " : L" peças, ") + texts::withComma(row.pesoTotal) +
           L" kg";
}

/// Checks one row; its oldest piece that counts, null when it has none.
AcDbObjectId checkRow(Survey& survey, const MaterialList& list, AcDbObjectId record) {
    const std::optional<Linha> stored = storedRow(record);
    const std::optional<Linha> now = rowAt(record);
    if (!stored || !now) return {};
    if (now->pecas.empty() && now->vistas.empty()) {
        survey.fault(Fault::RowWithoutPeca, {record}, now->marca, list.header.point,
                     L"a linha " + wordsOf(*now) + L" não tem peça no desenho.",
                     erased(*now)
                         ? L"Retire-a com LISTAMATERIAL Limpar, ou traga a peça de volta."
                         : L"Desenhe a peça, ou apague a marca e use LISTAMATERIAL Limpar.");
        return {};
    }
    if (now->pecas.empty())
        survey.fault(Fault::RowWithoutPeca, {now->vistas.front()}, now->marca, list.header.point,
                     L"a linha " + wordsOf(*now) + L" só tem vistas que não contam.",
                     L"Diga quanto conta uma delas com MARCAS Contar.");
    const AcDbObjectId first = now->pecas.empty() ? now->vistas.front() : now->pecas.front();
    const AcDbObjectPointer<ZpObject> model(first, AcDb::kForRead);
    if (model.object() == nullptr) return {};
    if (!saysTheSame(*stored, *now))
        survey.fault(Fault::RowSaysOther, {first}, now->marca, middleOf(*model.object()),
                     L"a linha guardada diz " + allWordsOf(*stored) + L"; o desenho mostra " +
                         allWordsOf(*now) + L".",
                     L"Confirme a peça em EDITAPERFIL para a linha a acompanhar.");
    for (const auto* const pecas : {&now->pecas, &now->vistas})
        for (const AcDbObjectId& id : *pecas) {
            const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
            if (peca.object() == nullptr || member::same(*model.object(), *peca.object()) ||
                chapaInSecao(id))
                continue;
            survey.fault(
                Fault::RowSaysOther, {id}, now->marca, middleOf(*peca.object()),
                L"a linha diz " + wordsOf(*now) + L"; a peça é " + wordsOf(*peca.object()) + L".",
                L"Corrija a peça com EDITAPERFIL, ou separe-a com MARCAS Agrupar.");
        }
    return first;
}

bool standsOn(const ZpObject& peca, const AcGePoint3d& tip) {
    const Peca& p = Access::of(peca);
    const AcGeVector3d local = p.pictureFrame().toLocal(tip);
    const secao::Bounds box = p.picture();
    return local.x >= box.x0 - kSameCheckedPlace && local.x <= box.x1 + kSameCheckedPlace &&
           local.y >= box.y0 - kSameCheckedPlace && local.y <= box.y1 + kSameCheckedPlace;
}

/// Checks one drawn mark; what it names where its piece is in no list.
std::optional<Named> checkMarca(Survey& survey, AcDbObjectId id) {
    const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
    if (marca.object() == nullptr) return {};
    const AcDbObjectPointer<ZpObject> peca(marca->peca(), AcDb::kForRead);
    if (peca.object() == nullptr) {
        survey.fault(Fault::MarcaOnNothing, {id}, marca->marca(), marca->tip(),
                     L"a marca não é de nenhuma peça.",
                     L"Apague a marca, ou marque a peça com MARCAS Agrupar.");
        return {};
    }
    if (!standsOn(*peca.object(), marca->tip()))
        survey.fault(Fault::MarcaOnNothing, {id, marca->peca()}, marca->marca(), marca->tip(),
                     L"a ponta da marca não está na sua peça.", L"Leve a ponta até a peça.");
    const AcDbObjectId record = survey.book.rowOf(marca->peca());
    if (record.isNull()) return Named{marca->marca(), marca->peca()};
    const std::wstring& ofRow = survey.book.row(record)->marca;
    if (ofRow != marca->marca())
        survey.fault(
            Fault::RowSaysOther, {id, marca->peca()}, ofRow, marca->tip(),
            L"a marca desenhada diz " + marca->marca() + L"; a linha da peça diz " + ofRow + L".",
            L"Corrija o texto da marca nas propriedades.");
    return {};
}

/// Plates of other views do not tell whether they are one.
bool sameMember(const ZpObject& a, const ZpObject& b) {
    return member::same(a, b) && (!a.isKindOf(ZpChapa::desc()) || a.vista() == b.vista());
}

/// Equal pieces have one of the keys with steps -1, 0 and 1.
std::size_t keyOf(const ZpObject& peca, int step) {
    std::size_t key = member::hashOf(peca, step);
    if (!peca.isKindOf(ZpChapa::desc())) return key;
    const Peca& p = Access::of(peca);
    for (const double v : {static_cast<double>(p.vista), p.actual[0], p.actual[1], p.comprimento})
        key = key * 1099511628211U ^ std::hash<long long>()(std::llround(v * 1e3));
    return key;
}

/// "V1" and "V1E": mirrored pieces that were given marks of their own.
bool areTwins(const std::wstring& a, const std::wstring& b) {
    return a + L"E" == b || b + L"E" == a;
}

/// Members against each other, by hash: those that differ from all before are few in one bucket.
class Members {
public:
    explicit Members(Survey& survey) : m_survey(survey) {}

    void compare(const Named& named) {
        const AcDbObjectPointer<ZpObject> peca(named.peca, AcDb::kForRead);
        if (peca.object() == nullptr) return;
        compareMarca(named, *peca.object());
        for (const int step : {0, -1, 1})
            for (const Named& other : m_members[keyOf(*peca.object(), step)])
                if (isEqual(other, *peca.object())) {
                    if (other.marca != named.marca && !areTwins(other.marca, named.marca))
                        m_survey.fault(Fault::EqualWithTwoMarcas, {named.peca, other.peca},
                                       named.marca, middleOf(*peca.object()),
                                       L"peça igual à " + other.marca + L" (" +
                                           wordsOf(*peca.object()) + L").",
                                       L"Junte as duas com MARCAS Agrupar.");
                    return;
                }
        m_members[keyOf(*peca.object(), 0)].push_back(named);
    }

private:
    static bool isEqual(const Named& other, const ZpObject& peca) {
        const AcDbObjectPointer<ZpObject> opened(other.peca, AcDb::kForRead);
        return opened.object() != nullptr && sameMember(*opened.object(), peca);
    }
    void compareMarca(const Named& named, const ZpObject& peca) {
        const auto [first, fresh] = m_marcas.try_emplace(named.marca, named.peca);
        if (fresh) return;
        const AcDbObjectPointer<ZpObject> other(first->second, AcDb::kForRead);
        if (other.object() == nullptr || member::same(*other.object(), peca)) return;
        m_survey.fault(Fault::OneMarcaForTwo, {named.peca, first->second}, named.marca,
                       middleOf(peca),
                       L"a mesma marca em duas peças diferentes: " + wordsOf(*other.object()) +
                           L" e " + wordsOf(peca) + L".",
                       L"Dê outra marca a uma delas.");
    }

    Survey& m_survey;
    std::unordered_map<std::size_t, std::vector<Named>> m_members;
    std::unordered_map<std::wstring, AcDbObjectId> m_marcas;
};

}  // namespace

void checkRows(Survey& survey) {
    Members members(survey);
    for (const MaterialList& list : survey.lists)
        for (const AcDbObjectId& record : survey.book.records(list.id))
            if (const AcDbObjectId first = checkRow(survey, list, record); !first.isNull())
                members.compare({survey.book.row(record)->marca, first});
    for (const AcDbObjectId& id : survey.book.marcas())
        if (const std::optional<Named> named = checkMarca(survey, id)) members.compare(*named);
}

}  // namespace zp::matlist
