// SPDX-License-Identifier: MIT
// Material lists in the named objects dictionary.
#include "zp/matlist/lists.h"

#include <algorithm>
#include <cwchar>
#include <memory>
#include <set>

#include "acutads.h"
#include "dbxrecrd.h"
#include "texts/number.h"
#include "zp/buffer_chain.h"
#include "zp/matlist/columns.h"
#include "zp/matlist/zpmarca.h"

namespace zp::lista {
namespace {

constexpr const ACHAR* kRoot = L"ZP_LISTAS_MATERIAL";
constexpr const ACHAR* kHeader = L"CABECALHO";
constexpr const wchar_t* kListPrefix = L"LISTA";
constexpr const wchar_t* kRowPrefix = L"L";
constexpr short kVersion = 1;

/// Builds a list group by group.
class Escritor {
public:
    Escritor() { poe(int{kVersion}); }
    void poe(const std::wstring& t) { liga(acutBuildList(AcDb::kDxfText, t.c_str(), RTNONE)); }
    void poe(int v) { liga(acutBuildList(AcDb::kDxfInt32, v, RTNONE)); }
    void poe(double v) { liga(acutBuildList(AcDb::kDxfReal, v, RTNONE)); }
    void poe(const AcGePoint3d& p) {
        const ads_point xyz = {p.x, p.y, p.z};
        liga(acutBuildList(AcDb::kDxfXCoord, xyz, RTNONE));
    }
    void poe(const AcDbObjectId& i) {
        ads_name nome;
        if (acdbGetAdsName(nome, i) == Acad::eOk)
            liga(acutBuildList(AcDb::kDxfSoftPointerId, nome, RTNONE));
    }
    const resbuf* inicio() const { return m_start.get(); }

private:
    void liga(resbuf* item) {
        if (item == nullptr) return;
        if (m_last == nullptr)
            m_start.reset(item);
        else
            m_last->rbnext = item;
        m_last = item;
    }
    Corrente m_start;
    resbuf* m_last = nullptr;
};

/// Reads in the same order; after the first thing that does not fit everything is empty.
class Leitor {
public:
    explicit Leitor(const AcDbXrecord& registro) {
        resbuf* lista = nullptr;
        (void)registro.rbChain(&lista);  // an empty record gives no list
        m_start.reset(lista);
        m_item = lista;
        int versao = 0;
        le(versao);
        if (versao != kVersion) m_item = nullptr;
    }
    bool finished() const { return m_item == nullptr; }
    void le(std::wstring& t) {
        const resbuf* r = proximo(AcDb::kDxfText);
        t = r != nullptr && r->resval.rstring != nullptr ? r->resval.rstring : L"";
    }
    void le(int& v) {
        const resbuf* r = proximo(AcDb::kDxfInt32);
        v = r != nullptr ? r->resval.rlong : 0;
    }
    void le(double& v) {
        const resbuf* r = proximo(AcDb::kDxfReal);
        v = r != nullptr ? r->resval.rreal : 0.0;
    }
    void le(AcGePoint3d& p) {
        const resbuf* r = proximo(AcDb::kDxfXCoord);
        p = r != nullptr
                ? AcGePoint3d(r->resval.rpoint[0], r->resval.rpoint[1], r->resval.rpoint[2])
                : AcGePoint3d();
    }
    AcDbObjectId id() {
        AcDbObjectId i;
        const resbuf* r = proximo(AcDb::kDxfSoftPointerId);
        if (r != nullptr)
            (void)acdbGetObjectId(i, r->resval.rlname);  // null when the object is gone
        return i;
    }

private:
    const resbuf* proximo(int codigo) {
        const resbuf* r = m_item;
        if (r == nullptr || r->restype != codigo) {
            m_item = nullptr;
            return nullptr;
        }
        m_item = r->rbnext;
        return r;
    }
    Corrente m_start;
    const resbuf* m_item = nullptr;
};

/// Sub-dictionary of this name, made when it is missing.
AcDbObjectId pasta(AcDbObjectId dentro, const ACHAR* nome, bool cria) {
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbDictionary> d(dentro, cria ? AcDb::kForWrite : AcDb::kForRead);
    if (d.object() == nullptr || d->getAt(nome, id) == Acad::eOk || !cria) return id;
    auto nova = std::make_unique<AcDbDictionary>();
    if (d->setAt(nome, nova.get(), id) == Acad::eOk) (void)nova.release()->close();
    return id;
}

bool grava(AcDbObjectId lista, const ACHAR* nome, const Escritor& escritor) {
    const AcDbObjectPointer<AcDbDictionary> d(lista, AcDb::kForWrite);
    if (d.object() == nullptr) return false;
    AcDbObjectId id;
    if (d->getAt(nome, id) == Acad::eOk) {
        const AcDbObjectPointer<AcDbXrecord> registro(id, AcDb::kForWrite);
        return registro.object() != nullptr &&
               registro->setFromRbChain(*escritor.inicio()) == Acad::eOk;
    }
    auto registro = std::make_unique<AcDbXrecord>();
    if (registro->setFromRbChain(*escritor.inicio()) != Acad::eOk) return false;
    if (d->setAt(nome, registro.get(), id) != Acad::eOk) return false;
    (void)registro.release()->close();
    return true;
}

/// Number behind a prefix; 0 when the name is another one.
int numberOf(const std::wstring& nome, const wchar_t* prefix) {
    const std::size_t n = std::wcslen(prefix);
    if (nome.size() <= n || nome.size() > n + 9 || nome.compare(0, n, prefix) != 0) return 0;
    if (nome.find_first_not_of(L"0123456789", n) != std::wstring::npos) return 0;
    return texts::toInt(nome.c_str() + n);
}

struct Entrada {
    int numero;
    AcDbObjectId id;
};

std::vector<Entrada> entries(AcDbObjectId dictionary, const wchar_t* prefix) {
    std::vector<Entrada> found;
    const AcDbObjectPointer<AcDbDictionary> d(dictionary, AcDb::kForRead);
    if (d.object() == nullptr) return found;
    const std::unique_ptr<AcDbDictionaryIterator> i(d->newIterator());
    for (; i && !i->done(); i->next())
        if (const int n = numberOf(i->name(), prefix); n > 0 && !i->objectId().isErased())
            found.push_back({n, i->objectId()});
    std::sort(found.begin(), found.end(),
              [](const Entrada& a, const Entrada& b) { return a.numero < b.numero; });
    return found;
}

Linha readRow(Leitor& l) {
    Linha linha(L"", 0, L"", L"", L"", 0.0, 0.0, 0.0, 0.0, L"");
    for (const Column& c : kColumnTable)
        std::visit([&](auto field) { l.le(linha.*field); }, c.field);
    // What was erased before the drawing was saved is null now, and still counts as erased.
    while (!l.finished()) linha.ids.push_back(AcDbSoftPointerId(l.id()));
    return linha;
}

void putRow(Escritor& e, const Linha& l) {
    for (const Column& c : kColumnTable) std::visit([&](auto field) { e.poe(l.*field); }, c.field);
    for (const AcDbSoftPointerId& id : l.ids) e.poe(id);
}

/// Marks of the list asked last. They hold as long as its last row is still the last and what was
/// taken out stays out, which undo changes; adding a row keeps them up, so that n rows cost O(n).
struct Cache {
    AcDbObjectId lista;
    AcDbObjectId last;
    int proximo = 1;  ///< number of the next row
    std::set<int> marcas;
    int lowestFree = 1;                                    ///< lowest mark not in use
    std::vector<std::pair<AcDbObjectId, bool>> witnesses;  ///< taken out, erased then

    void usa(int marca) {
        marcas.insert(marca);
        while (marcas.contains(lowestFree)) ++lowestFree;
    }
};
Cache g_cache;
/// One row of each time that rows were taken out: undo brings all of them back.
std::vector<AcDbObjectId> g_removed;

int marcaNumber(const std::wstring& marca) { return numberOf(marca, L"P"); }

std::wstring nomeDaLinha(int numero) { return kRowPrefix + std::to_wstring(numero); }

bool vale(const Cache& g, AcDbObjectId lista) {
    if (g.lista != lista || g.last.isNull() || g.last.isErased()) return false;
    if (std::any_of(g.witnesses.begin(), g.witnesses.end(),
                    [](const auto& t) { return t.first.isErased() != t.second; }))
        return false;
    const AcDbObjectPointer<AcDbDictionary> d(lista, AcDb::kForRead);
    AcDbObjectId id;
    return d.object() != nullptr && d->getAt(nomeDaLinha(g.proximo - 1).c_str(), id) == Acad::eOk &&
           id == g.last && !d->has(nomeDaLinha(g.proximo).c_str());
}

Cache& guardado(AcDbObjectId lista) {
    Cache& g = g_cache;
    if (vale(g, lista)) return g;
    g = {};
    g.lista = lista;
    for (const Entrada& e : entries(lista, kRowPrefix)) {
        g.last = e.id;
        g.proximo = e.numero + 1;
        const AcDbObjectPointer<AcDbXrecord> registro(e.id, AcDb::kForRead);
        if (registro.object() == nullptr) continue;
        Leitor leitor(*registro.object());
        std::wstring marca;
        leitor.le(marca);
        if (const int n = marcaNumber(marca); n > 0) g.usa(n);
    }
    for (const AcDbObjectId& id : g_removed) g.witnesses.push_back({id, id.isErased()});
    return g;
}

void somaLinha(Cache& g, const std::wstring& marca) {
    const AcDbObjectPointer<AcDbDictionary> d(g.lista, AcDb::kForRead);
    if (d.object() == nullptr) return;
    (void)d->getAt(nomeDaLinha(g.proximo).c_str(), g.last);  // written a moment ago
    ++g.proximo;
    if (const int n = marcaNumber(marca); n > 0) g.usa(n);
}

}  // namespace

std::vector<Lista> listas(AcDbDatabase& desenho) {
    std::vector<Lista> found;
    const AcDbObjectId root = pasta(desenho.namedObjectsDictionaryId(), kRoot, false);
    if (root.isNull()) return found;
    for (const Entrada& e : entries(root, kListPrefix))
        if (const auto header = readHeader(e.id)) found.push_back({e.numero, e.id, *header});
    return found;
}

std::optional<Lista> nova(AcDbDatabase& desenho, const std::wstring& grupo) {
    const AcDbObjectId root = pasta(desenho.namedObjectsDictionaryId(), kRoot, true);
    if (root.isNull()) return {};
    int numero = 1;
    for (const Entrada& e : entries(root, kListPrefix)) {
        if (e.numero != numero) break;
        ++numero;
    }
    Lista lista;
    lista.numero = numero;
    lista.header.grupo = grupo;
    lista.id = pasta(root, (kListPrefix + std::to_wstring(numero)).c_str(), true);
    if (lista.id.isNull() || !writeHeader(lista.id, lista.header)) return {};
    return lista;
}

std::optional<Header> readHeader(AcDbObjectId lista) {
    const AcDbObjectPointer<AcDbDictionary> d(lista, AcDb::kForRead);
    AcDbObjectId id;
    if (d.object() == nullptr || d->getAt(kHeader, id) != Acad::eOk) return {};
    const AcDbObjectPointer<AcDbXrecord> registro(id, AcDb::kForRead);
    if (registro.object() == nullptr) return {};
    Leitor leitor(*registro.object());
    if (leitor.finished()) return {};
    Header c;
    leitor.le(c.grupo);
    leitor.le(c.ponto);
    while (!leitor.finished())
        if (const AcDbObjectId parte = leitor.id(); !parte.isNull())
            c.tabela.push_back(AcDbSoftPointerId(parte));
    return c;
}

bool writeHeader(AcDbObjectId lista, const Header& header) {
    Escritor e;
    e.poe(header.grupo);
    e.poe(header.ponto);
    for (const AcDbSoftPointerId& id : header.tabela) e.poe(id);
    return grava(lista, kHeader, e);
}

bool hasTable(const Header& header) {
    return std::any_of(header.tabela.begin(), header.tabela.end(),
                       [](const AcDbSoftPointerId& id) { return !id.isErased(); });
}

bool hasNoRows(AcDbObjectId lista) { return guardado(lista).last.isNull(); }

std::vector<Linha> linhas(AcDbObjectId lista) {
    std::vector<Linha> all;
    for (const Entrada& e : entries(lista, kRowPrefix)) {
        const AcDbObjectPointer<AcDbXrecord> registro(e.id, AcDb::kForRead);
        if (registro.object() == nullptr) continue;
        Leitor leitor(*registro.object());
        if (!leitor.finished()) all.push_back(readRow(leitor));
    }
    return all;
}

bool acrescenta(AcDbObjectId lista, const Linha& l) {
    Cache& g = guardado(lista);
    Escritor e;
    putRow(e, l);
    if (!grava(lista, nomeDaLinha(g.proximo).c_str(), e)) return false;
    somaLinha(g, l.marca);
    return true;
}

std::vector<RowRecord> registros(AcDbObjectId lista) {
    std::vector<RowRecord> todos;
    for (const Entrada& e : entries(lista, kRowPrefix)) todos.push_back({e.numero, e.id});
    return todos;
}

std::size_t entryCount(AcDbObjectId lista) {
    const AcDbObjectPointer<AcDbDictionary> d(lista, AcDb::kForRead);
    return d.object() != nullptr ? d->numEntries() : 0;
}

AcDbObjectId recordNumbered(AcDbObjectId lista, int numero) {
    const AcDbObjectPointer<AcDbDictionary> d(lista, AcDb::kForRead);
    AcDbObjectId id;
    if (d.object() == nullptr || d->getAt(nomeDaLinha(numero).c_str(), id) != Acad::eOk) return {};
    return id;
}

std::optional<Linha> rowAt(AcDbObjectId registro) {
    const AcDbObjectPointer<AcDbXrecord> aberto(registro, AcDb::kForRead);
    if (aberto.object() == nullptr) return {};
    Leitor leitor(*aberto.object());
    if (leitor.finished()) return {};
    return readRow(leitor);
}

bool rewrite(AcDbObjectId registro, const Linha& linha) {
    const AcDbObjectPointer<AcDbXrecord> aberto(registro, AcDb::kForWrite);
    if (aberto.object() == nullptr) return false;
    Escritor e;
    putRow(e, linha);
    // The mark may be another one now.
    g_cache = {};
    return aberto->setFromRbChain(*e.inicio()) == Acad::eOk;
}

void esquece() {
    g_cache = {};
    g_removed.clear();
}

int lowestFreeMarca(AcDbObjectId lista, const std::vector<int>& given) {
    const Cache& g = guardado(lista);
    int lowestFree = g.lowestFree;
    while (g.marcas.contains(lowestFree) ||
           std::find(given.begin(), given.end(), lowestFree) != given.end())
        ++lowestFree;
    return lowestFree;
}

Estado stateOf(const Linha& linha) {
    if (linha.ids.empty()) return Estado::Alive;
    Estado estado = Estado::MarcaErased;
    for (const AcDbSoftPointerId& id : linha.ids) {
        if (id.isNull() || id.isErased()) continue;
        const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
        if (marca.object() == nullptr || !marca->pecaErased()) return Estado::Alive;
        estado = Estado::PecaErased;
    }
    return estado;
}

bool apagada(const Linha& linha) { return stateOf(linha) != Estado::Alive; }

int removeErased(AcDbObjectId lista) {
    int removed = 0;
    for (const Entrada& e : entries(lista, kRowPrefix)) {
        std::vector<AcDbSoftPointerId> marcas;
        {
            const AcDbObjectPointer<AcDbXrecord> registro(e.id, AcDb::kForRead);
            if (registro.object() == nullptr) continue;
            Leitor leitor(*registro.object());
            if (leitor.finished()) continue;
            const Linha linha = readRow(leitor);
            if (!apagada(linha)) continue;
            marcas = linha.ids;
        }
        const AcDbObjectPointer<AcDbXrecord> registro(e.id, AcDb::kForWrite);
        if (registro.object() == nullptr || registro->erase() != Acad::eOk) continue;
        if (++removed == 1) g_removed.push_back(e.id);
        for (const AcDbSoftPointerId& id : marcas) {
            const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForWrite);
            if (marca.object() != nullptr) (void)marca->erase();  // open for write and alive
        }
    }
    if (removed > 0) g_cache = {};
    return removed;
}

std::wstring observacaoOf(const Linha& linha) {
    const Estado estado = stateOf(linha);
    if (estado == Estado::Alive) return linha.observacao;
    const std::wstring aviso = estado == Estado::PecaErased ? L"peça apagada" : L"apagada";
    return linha.observacao.empty() ? aviso : linha.observacao + L" (" + aviso + L")";
}

}  // namespace zp::lista
