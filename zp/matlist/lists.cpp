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

constexpr const ACHAR* kRaiz = L"ZP_LISTAS_MATERIAL";
constexpr const ACHAR* kCabecalho = L"CABECALHO";
constexpr const wchar_t* kPrefixoLista = L"LISTA";
constexpr const wchar_t* kPrefixoLinha = L"L";
constexpr short kVersao = 1;

/// Builds a list group by group.
class Escritor {
public:
    Escritor() { poe(int{kVersao}); }
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
    const resbuf* inicio() const { return m_inicio.get(); }

private:
    void liga(resbuf* item) {
        if (item == nullptr) return;
        if (m_ultimo == nullptr)
            m_inicio.reset(item);
        else
            m_ultimo->rbnext = item;
        m_ultimo = item;
    }
    Corrente m_inicio;
    resbuf* m_ultimo = nullptr;
};

/// Reads in the same order; after the first thing that does not fit everything is empty.
class Leitor {
public:
    explicit Leitor(const AcDbXrecord& registro) {
        resbuf* lista = nullptr;
        (void)registro.rbChain(&lista);  // an empty record gives no list
        m_inicio.reset(lista);
        m_item = lista;
        int versao = 0;
        le(versao);
        if (versao != kVersao) m_item = nullptr;
    }
    bool acabou() const { return m_item == nullptr; }
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
    Corrente m_inicio;
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
int numeroDe(const std::wstring& nome, const wchar_t* prefixo) {
    const std::size_t n = std::wcslen(prefixo);
    if (nome.size() <= n || nome.size() > n + 9 || nome.compare(0, n, prefixo) != 0) return 0;
    if (nome.find_first_not_of(L"0123456789", n) != std::wstring::npos) return 0;
    return texts::toInt(nome.c_str() + n);
}

struct Entrada {
    int numero;
    AcDbObjectId id;
};

std::vector<Entrada> entradas(AcDbObjectId dicionario, const wchar_t* prefixo) {
    std::vector<Entrada> achadas;
    const AcDbObjectPointer<AcDbDictionary> d(dicionario, AcDb::kForRead);
    if (d.object() == nullptr) return achadas;
    const std::unique_ptr<AcDbDictionaryIterator> i(d->newIterator());
    for (; i && !i->done(); i->next())
        if (const int n = numeroDe(i->name(), prefixo); n > 0 && !i->objectId().isErased())
            achadas.push_back({n, i->objectId()});
    std::sort(achadas.begin(), achadas.end(),
              [](const Entrada& a, const Entrada& b) { return a.numero < b.numero; });
    return achadas;
}

Linha leLinha(Leitor& l) {
    Linha linha(L"", 0, L"", L"", L"", 0.0, 0.0, 0.0, 0.0, L"");
    for (const Column& c : kColumnTable)
        std::visit([&](auto field) { l.le(linha.*field); }, c.field);
    // What was erased before the drawing was saved is null now, and still counts as erased.
    while (!l.acabou()) linha.ids.push_back(AcDbSoftPointerId(l.id()));
    return linha;
}

void poeLinha(Escritor& e, const Linha& l) {
    for (const Column& c : kColumnTable) std::visit([&](auto field) { e.poe(l.*field); }, c.field);
    for (const AcDbSoftPointerId& id : l.ids) e.poe(id);
}

/// Marks of the list asked last. They hold as long as its last row is still the last and what was
/// taken out stays out, which undo changes; adding a row keeps them up, so that n rows cost O(n).
struct Guardado {
    AcDbObjectId lista;
    AcDbObjectId ultima;
    int proximo = 1;  ///< number of the next row
    std::set<int> marcas;
    int livre = 1;                                           ///< lowest mark not in use
    std::vector<std::pair<AcDbObjectId, bool>> testemunhas;  ///< taken out, erased then

    void usa(int marca) {
        marcas.insert(marca);
        while (marcas.contains(livre)) ++livre;
    }
};
Guardado g_guardado;
/// One row of each time that rows were taken out: undo brings all of them back.
std::vector<AcDbObjectId> g_retiradas;

int numeroDaMarca(const std::wstring& marca) { return numeroDe(marca, L"P"); }

std::wstring nomeDaLinha(int numero) { return kPrefixoLinha + std::to_wstring(numero); }

bool vale(const Guardado& g, AcDbObjectId lista) {
    if (g.lista != lista || g.ultima.isNull() || g.ultima.isErased()) return false;
    if (std::any_of(g.testemunhas.begin(), g.testemunhas.end(),
                    [](const auto& t) { return t.first.isErased() != t.second; }))
        return false;
    const AcDbObjectPointer<AcDbDictionary> d(lista, AcDb::kForRead);
    AcDbObjectId id;
    return d.object() != nullptr && d->getAt(nomeDaLinha(g.proximo - 1).c_str(), id) == Acad::eOk &&
           id == g.ultima && !d->has(nomeDaLinha(g.proximo).c_str());
}

Guardado& guardado(AcDbObjectId lista) {
    Guardado& g = g_guardado;
    if (vale(g, lista)) return g;
    g = {};
    g.lista = lista;
    for (const Entrada& e : entradas(lista, kPrefixoLinha)) {
        g.ultima = e.id;
        g.proximo = e.numero + 1;
        const AcDbObjectPointer<AcDbXrecord> registro(e.id, AcDb::kForRead);
        if (registro.object() == nullptr) continue;
        Leitor leitor(*registro.object());
        std::wstring marca;
        leitor.le(marca);
        if (const int n = numeroDaMarca(marca); n > 0) g.usa(n);
    }
    for (const AcDbObjectId& id : g_retiradas) g.testemunhas.push_back({id, id.isErased()});
    return g;
}

void somaLinha(Guardado& g, const std::wstring& marca) {
    const AcDbObjectPointer<AcDbDictionary> d(g.lista, AcDb::kForRead);
    if (d.object() == nullptr) return;
    (void)d->getAt(nomeDaLinha(g.proximo).c_str(), g.ultima);  // written a moment ago
    ++g.proximo;
    if (const int n = numeroDaMarca(marca); n > 0) g.usa(n);
}

}  // namespace

std::vector<Lista> listas(AcDbDatabase& desenho) {
    std::vector<Lista> achadas;
    const AcDbObjectId raiz = pasta(desenho.namedObjectsDictionaryId(), kRaiz, false);
    if (raiz.isNull()) return achadas;
    for (const Entrada& e : entradas(raiz, kPrefixoLista))
        if (const auto cabecalho = leCabecalho(e.id))
            achadas.push_back({e.numero, e.id, *cabecalho});
    return achadas;
}

std::optional<Lista> nova(AcDbDatabase& desenho, const std::wstring& grupo) {
    const AcDbObjectId raiz = pasta(desenho.namedObjectsDictionaryId(), kRaiz, true);
    if (raiz.isNull()) return {};
    int numero = 1;
    for (const Entrada& e : entradas(raiz, kPrefixoLista)) {
        if (e.numero != numero) break;
        ++numero;
    }
    Lista lista;
    lista.numero = numero;
    lista.cabecalho.grupo = grupo;
    lista.id = pasta(raiz, (kPrefixoLista + std::to_wstring(numero)).c_str(), true);
    if (lista.id.isNull() || !gravaCabecalho(lista.id, lista.cabecalho)) return {};
    return lista;
}

std::optional<Cabecalho> leCabecalho(AcDbObjectId lista) {
    const AcDbObjectPointer<AcDbDictionary> d(lista, AcDb::kForRead);
    AcDbObjectId id;
    if (d.object() == nullptr || d->getAt(kCabecalho, id) != Acad::eOk) return {};
    const AcDbObjectPointer<AcDbXrecord> registro(id, AcDb::kForRead);
    if (registro.object() == nullptr) return {};
    Leitor leitor(*registro.object());
    if (leitor.acabou()) return {};
    Cabecalho c;
    leitor.le(c.grupo);
    leitor.le(c.ponto);
    while (!leitor.acabou())
        if (const AcDbObjectId parte = leitor.id(); !parte.isNull())
            c.tabela.push_back(AcDbSoftPointerId(parte));
    return c;
}

bool gravaCabecalho(AcDbObjectId lista, const Cabecalho& cabecalho) {
    Escritor e;
    e.poe(cabecalho.grupo);
    e.poe(cabecalho.ponto);
    for (const AcDbSoftPointerId& id : cabecalho.tabela) e.poe(id);
    return grava(lista, kCabecalho, e);
}

bool temTabela(const Cabecalho& cabecalho) {
    return std::any_of(cabecalho.tabela.begin(), cabecalho.tabela.end(),
                       [](const AcDbSoftPointerId& id) { return !id.isErased(); });
}

bool semLinhas(AcDbObjectId lista) { return guardado(lista).ultima.isNull(); }

std::vector<Linha> linhas(AcDbObjectId lista) {
    std::vector<Linha> todas;
    for (const Entrada& e : entradas(lista, kPrefixoLinha)) {
        const AcDbObjectPointer<AcDbXrecord> registro(e.id, AcDb::kForRead);
        if (registro.object() == nullptr) continue;
        Leitor leitor(*registro.object());
        if (!leitor.acabou()) todas.push_back(leLinha(leitor));
    }
    return todas;
}

bool acrescenta(AcDbObjectId lista, const Linha& l) {
    Guardado& g = guardado(lista);
    Escritor e;
    poeLinha(e, l);
    if (!grava(lista, nomeDaLinha(g.proximo).c_str(), e)) return false;
    somaLinha(g, l.marca);
    return true;
}

std::vector<Registro> registros(AcDbObjectId lista) {
    std::vector<Registro> todos;
    for (const Entrada& e : entradas(lista, kPrefixoLinha)) todos.push_back({e.numero, e.id});
    return todos;
}

std::size_t entradasDe(AcDbObjectId lista) {
    const AcDbObjectPointer<AcDbDictionary> d(lista, AcDb::kForRead);
    return d.object() != nullptr ? d->numEntries() : 0;
}

AcDbObjectId registroDeNumero(AcDbObjectId lista, int numero) {
    const AcDbObjectPointer<AcDbDictionary> d(lista, AcDb::kForRead);
    AcDbObjectId id;
    if (d.object() == nullptr || d->getAt(nomeDaLinha(numero).c_str(), id) != Acad::eOk) return {};
    return id;
}

std::optional<Linha> linhaEm(AcDbObjectId registro) {
    const AcDbObjectPointer<AcDbXrecord> aberto(registro, AcDb::kForRead);
    if (aberto.object() == nullptr) return {};
    Leitor leitor(*aberto.object());
    if (leitor.acabou()) return {};
    return leLinha(leitor);
}

bool regrava(AcDbObjectId registro, const Linha& linha) {
    const AcDbObjectPointer<AcDbXrecord> aberto(registro, AcDb::kForWrite);
    if (aberto.object() == nullptr) return false;
    Escritor e;
    poeLinha(e, linha);
    // The mark may be another one now.
    g_guardado = {};
    return aberto->setFromRbChain(*e.inicio()) == Acad::eOk;
}

void esquece() {
    g_guardado = {};
    g_retiradas.clear();
}

int menorMarcaLivre(AcDbObjectId lista, const std::vector<int>& dadas) {
    const Guardado& g = guardado(lista);
    int livre = g.livre;
    while (g.marcas.contains(livre) || std::find(dadas.begin(), dadas.end(), livre) != dadas.end())
        ++livre;
    return livre;
}

Estado estadoDe(const Linha& linha) {
    if (linha.ids.empty()) return Estado::Viva;
    Estado estado = Estado::MarcaApagada;
    for (const AcDbSoftPointerId& id : linha.ids) {
        if (id.isNull() || id.isErased()) continue;
        const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
        if (marca.object() == nullptr || !marca->pecaApagada()) return Estado::Viva;
        estado = Estado::PecaApagada;
    }
    return estado;
}

bool apagada(const Linha& linha) { return estadoDe(linha) != Estado::Viva; }

int retiraApagadas(AcDbObjectId lista) {
    int retiradas = 0;
    for (const Entrada& e : entradas(lista, kPrefixoLinha)) {
        std::vector<AcDbSoftPointerId> marcas;
        {
            const AcDbObjectPointer<AcDbXrecord> registro(e.id, AcDb::kForRead);
            if (registro.object() == nullptr) continue;
            Leitor leitor(*registro.object());
            if (leitor.acabou()) continue;
            const Linha linha = leLinha(leitor);
            if (!apagada(linha)) continue;
            marcas = linha.ids;
        }
        const AcDbObjectPointer<AcDbXrecord> registro(e.id, AcDb::kForWrite);
        if (registro.object() == nullptr || registro->erase() != Acad::eOk) continue;
        if (++retiradas == 1) g_retiradas.push_back(e.id);
        for (const AcDbSoftPointerId& id : marcas) {
            const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForWrite);
            if (marca.object() != nullptr) (void)marca->erase();  // open for write and alive
        }
    }
    if (retiradas > 0) g_guardado = {};
    return retiradas;
}

std::wstring observacaoDe(const Linha& linha) {
    const Estado estado = estadoDe(linha);
    if (estado == Estado::Viva) return linha.observacao;
    const std::wstring aviso = estado == Estado::PecaApagada ? L"peça apagada" : L"apagada";
    return linha.observacao.empty() ? aviso : linha.observacao + L" (" + aviso + L")";
}

}  // namespace zp::lista
