// SPDX-License-Identifier: MIT
// One rule at the end of each command: tied entities follow a piece that changed; a tied entity
// that changed alone has its place learnt again; an erased piece takes its dimensions and plates
// along and brings them back when it comes back; copies, and what came from a file, keep only links
// that are answered. Outside a command the rule runs after each change, except while a drawing is
// read.
#include "zp/objects/watch.h"

#include <algorithm>
#include <array>
#include <cwchar>
#include <cwctype>
#include <deque>
#include <memory>
#include <ranges>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "aced.h"
#include "dbdim.h"
#include "dbsymtb.h"
#include "zp/objects/links.h"

namespace zp::vigia {
namespace {

/// Ids in the order in which they came, each once.
class Fila {
public:
    void poe(AcDbObjectId id) {
        if (m_ja.insert(id.asOldId()).second) m_ordem.push_back(id);
    }
    bool tem(AcDbObjectId id) const { return m_ja.contains(id.asOldId()); }
    bool vazia() const { return m_ordem.empty(); }
    const std::vector<AcDbObjectId>& ordem() const { return m_ordem; }

private:
    std::vector<AcDbObjectId> m_ordem;
    std::unordered_set<Adesk::LongPtr> m_ja;
};

bool interessa(const AcDbObject* o) {
    return o->isKindOf(ZpObject::desc()) || o->isKindOf(AcDbDimension::desc());
}

/// Bars, and plates, kept to find the one that a mark points to: more than the plates of one
/// member.
constexpr std::size_t kUltimas = 1000;
/// How near to a corner the tip of a mark is on it, mm.
constexpr double kNaPonta = 1e-6;

bool explode(const ACHAR* comando) {
    constexpr const wchar_t kNome[] = L"EXPLODE";
    const wchar_t* n = kNome;
    for (; comando != nullptr && *comando != L'\0' && *n != L'\0'; ++comando, ++n)
        if (static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(*comando))) != *n)
            return false;
    return comando != nullptr && *comando == L'\0' && *n == L'\0';
}

class Desenho : public AcDbDatabaseReactor {
public:
    explicit Desenho(AcDbDatabase* desenho) : m_desenho(desenho) { desenho->addReactor(this); }
    ~Desenho() override {
        if (m_desenho != nullptr) m_desenho->removeReactor(this);
    }
    AcDbDatabase* desenho() const { return m_desenho; }

    void objectAppended(const AcDbDatabase*, const AcDbObject* o) override {
        if (m_aplicando || o->isUndoing() || !interessa(o)) return;
        if (const auto* peca = ZpObject::cast(o)) {
            Ultimas& doTipo = m_ultimas[Acesso::de(*peca).chapa() ? 1 : 0];
            doTipo.push_front(o->objectId());
            if (doTipo.size() > kUltimas) doTipo.pop_back();
        }
        m_novas.poe(o->objectId());
        m_porFechar.insert(o->objectId().asOldId());
    }
    void objectModified(const AcDbDatabase*, const AcDbObject* o) override;
    void objectErased(const AcDbDatabase*, const AcDbObject* o, Adesk::Boolean erased) override;
    void goodbye(const AcDbDatabase*) override { m_desenho = nullptr; }

    void aplica(bool desmancha);
    void comecaLeitura() { m_lendo = true; }
    /// The newest among the last bars, or plates, with this corner of the picture there.
    AcDbObjectId ultimaCom(bool chapa, int canto, const AcGePoint3d& ponta) const;
    /// Other programs erase and copy without minding links.
    void confereTudo();

private:
    void confere(AcDbObjectId id, const Fila& novas);
    void conferePeca(ZpObject& peca, const Fila& novas);
    void leva(AcDbObjectId id, bool desmancha);
    void desprende(AcDbObjectId dona, AcDbObjectId id);
    void traz(AcDbObjectId id, Fila& donas);
    void prende(AcDbObjectId id, Fila& donas);
    void colocaPresas(AcDbObjectId peca);
    void segue();
    void aprendeDeNovo(AcDbObjectId id, const Fila& mudadas);

    AcDbDatabase* m_desenho;
    bool m_aplicando = false;
    bool m_lendo = false;
    using Ultimas = std::deque<AcDbObjectId>;  // newest first
    std::array<Ultimas, 2> m_ultimas;          // bars, plates
    Fila m_novas;
    Fila m_mudadas;
    Fila m_apagadas;
    Fila m_devolvidas;
    Fila m_presas;
    /// What a piece knew of something tied to it that was erased alone, and where among its links.
    struct Desfeita {
        AcDbObjectId dona;
        std::ptrdiff_t lugar;
        Ligacao ligacao;
    };
    std::unordered_map<Adesk::LongPtr, std::vector<Desfeita>> m_desfeitas;  // by what was erased
    /// New objects whose first access has not ended: what they are tied to may not be there yet.
    std::unordered_set<Adesk::LongPtr> m_porFechar;
};

class CommandWatch : public AcEditorReactor {
public:
    CommandWatch() {
        if (AcEditor* editor = acedEditor; editor != nullptr) editor->addReactor(this);
    }
    ~CommandWatch() override {
        if (AcEditor* editor = acedEditor; editor != nullptr) editor->removeReactor(this);
    }
    void commandWillStart(const ACHAR*) override { ++m_comandos; }
    void commandEnded(const ACHAR* nome) override { fim(nome); }
    void commandCancelled(const ACHAR* nome) override { fim(nome); }
    void commandFailed(const ACHAR* nome) override { fim(nome); }
    bool emComando() const { return m_comandos > 0; }

private:
    void fim(const ACHAR* nome);
    int m_comandos = 0;
};

// The host calls reactors by pointer, without a context of the module's own.
struct Estado {
    std::unique_ptr<CommandWatch> commands;
    std::vector<std::unique_ptr<Desenho>> desenhos;
};
Estado g_estado;

void CommandWatch::fim(const ACHAR* nome) {
    for (const auto& d : g_estado.desenhos)
        if (d->desenho() != nullptr) d->aplica(explode(nome));
    m_comandos = std::max(0, m_comandos - 1);
}

bool emComando() { return g_estado.commands && g_estado.commands->emComando(); }

void Desenho::objectModified(const AcDbDatabase*, const AcDbObject* o) {
    if (m_aplicando || o->isUndoing() || !interessa(o)) return;
    m_mudadas.poe(o->objectId());
    if (m_porFechar.erase(o->objectId().asOldId()) > 0) return;
    if (!emComando() && !m_lendo) aplica(false);
}

void Desenho::objectErased(const AcDbDatabase*, const AcDbObject* o, Adesk::Boolean erased) {
    if (m_aplicando || o->isUndoing() || !interessa(o)) return;
    (erased ? m_apagadas : m_devolvidas).poe(o->objectId());
    if (!emComando() && !m_lendo) aplica(false);
}

void Desenho::aplica(bool desmancha) {
    if (m_aplicando) return;
    m_aplicando = true;
    m_lendo = false;
    const Fila novas = std::exchange(m_novas, {});
    m_porFechar.clear();
    for (const AcDbObjectId& id : novas.ordem()) confere(id, novas);
    const Fila apagadas = std::exchange(m_apagadas, {});
    for (const AcDbObjectId& id : apagadas.ordem()) leva(id, desmancha);
    // In the reverse order, so that each link finds the place that it had among the others.
    const Fila devolvidas = std::exchange(m_devolvidas, {});
    Fila donas;
    for (const AcDbObjectId& id : devolvidas.ordem() | std::views::reverse) traz(id, donas);
    for (const AcDbObjectId& dona : donas.ordem()) colocaPresas(dona);
    segue();
    m_mudadas = std::exchange(m_presas, {});
    m_aplicando = false;
}

AcDbObjectId Desenho::ultimaCom(bool chapa, int canto, const AcGePoint3d& ponta) const {
    for (const AcDbObjectId& id : m_ultimas[chapa ? 1 : 0]) {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) continue;
        AcGePoint3d f[4];
        peca->GetLimitPointsOfFaces(f[0], f[1], f[2], f[3]);
        if (f[canto].distanceTo(ponta) <= kNaPonta) return id;
    }
    return {};
}

/// Whether all links of the entity are known on their other side, as far as that can be read.
bool respondida(const AcDbEntity& entidade) {
    const auto nomeia = [](const auto& ids, AcDbObjectId id) {
        return std::ranges::find(ids, id) != ids.end();
    };
    if (const auto* peca = ZpObject::cast(&entidade)) {
        for (const Ligacao& l : Acesso::de(*peca).ligadas()) {
            if (l.papel == Ligacao::Papel::Dona) continue;
            const AcDbObjectPointer<AcDbEntity> outra(l.id, AcDb::kForRead);
            if (outra.openStatus() == Acad::eWasOpenForWrite) continue;
            if (outra.object() == nullptr || !nomeia(donasDe(*outra.object()), entidade.objectId()))
                return false;
        }
    }
    for (const AcDbObjectId& dona : donasDe(entidade)) {
        const AcDbObjectPointer<ZpObject> peca(dona, AcDb::kForRead);
        if (peca.openStatus() == Acad::eWasOpenForWrite) continue;
        if (peca.object() == nullptr ||
            Acesso::de(*peca.object()).ligacao(entidade.objectId()) == nullptr)
            return false;
    }
    return true;
}

void Desenho::confereTudo() {
    const AcDbObjectPointer<AcDbBlockTableRecord> espaco(m_desenho->currentSpaceId(),
                                                         AcDb::kForRead);
    AcDbBlockTableRecordIterator* iterador = nullptr;
    if (espaco.object() == nullptr || espaco->newIterator(iterador) != Acad::eOk) return;
    const std::unique_ptr<AcDbBlockTableRecordIterator> dono(iterador);
    m_aplicando = true;
    for (; !iterador->done(); iterador->step()) {
        AcDbObjectId id;
        if (iterador->getEntityId(id) != Acad::eOk) continue;
        bool solta = false;
        {
            const AcDbObjectPointer<AcDbEntity> entidade(id, AcDb::kForRead);
            solta = entidade.object() != nullptr && interessa(entidade.object()) &&
                    !respondida(*entidade.object());
        }
        if (solta) confere(id, {});
    }
    m_aplicando = false;
}

/// A new piece keeps a link when the other side names it, or when the other side is as new as
/// itself and was copied with it; a new dimension keeps the pieces that name it.
void Desenho::confere(AcDbObjectId id, const Fila& novas) {
    AcDbEntity* entidade = nullptr;
    if (acdbOpenAcDbEntity(entidade, id, AcDb::kForWrite) != Acad::eOk) return;
    if (auto* peca = ZpObject::cast(entidade)) conferePeca(*peca, novas);
    for (const AcDbObjectId& dona : donasDe(*entidade)) {
        const AcDbObjectPointer<ZpObject> peca(dona, AcDb::kForRead);
        if (peca.openStatus() == Acad::eWasOpenForWrite) continue;
        const bool lembra = peca.object() != nullptr &&
                            std::ranges::any_of(Acesso::de(*peca.object()).ligadas(),
                                                [&](const Ligacao& l) { return l.id == id; });
        if (!lembra) esqueceDona(*entidade, dona);
    }
    (void)entidade->close();
}

void Desenho::conferePeca(ZpObject& peca, const Fila& novas) {
    std::vector<AcDbObjectId> mortas;
    for (const Ligacao& l : Acesso::de(peca).ligadas()) {
        if (l.papel == Ligacao::Papel::Dona) continue;
        const bool nova = novas.tem(l.id);
        const AcDbObjectPointer<AcDbEntity> outra(l.id, nova ? AcDb::kForWrite : AcDb::kForRead);
        if (outra.openStatus() == Acad::eWasOpenForWrite) continue;
        if (outra.object() == nullptr) {
            mortas.push_back(l.id);
            continue;
        }
        const auto donas = donasDe(*outra.object());
        if (std::find(donas.begin(), donas.end(), peca.objectId()) != donas.end()) continue;
        if (nova)
            lembraDona(*outra.object(), peca.objectId());
        else
            mortas.push_back(l.id);
    }
    if (mortas.empty()) return;
    peca.assertWriteEnabled();
    for (const AcDbObjectId& id : mortas) Acesso::de(peca).desliga(id);
}

/// What an erased entity takes along, or what forgets it.
void Desenho::leva(AcDbObjectId id, bool desmancha) {
    struct Outra {
        AcDbObjectId id;
        bool apaga;
    };
    std::vector<Outra> outras;
    std::vector<AcDbObjectId> donas;
    {
        AcDbEntity* apagada = nullptr;
        if (acdbOpenAcDbEntity(apagada, id, AcDb::kForRead, true) != Acad::eOk) return;
        donas = donasDe(*apagada);
        const bool foi = apagada->isErased();
        if (const auto* peca = ZpObject::cast(apagada))
            for (const Ligacao& l : Acesso::de(*peca).ligadas())
                if (l.papel != Ligacao::Papel::Dona)
                    outras.push_back({l.id, l.papel == Ligacao::Papel::Cota});
        (void)apagada->close();
        if (!foi) return;
    }
    m_desfeitas.erase(id.asOldId());
    for (const AcDbObjectId& dona : donas) desprende(dona, id);
    for (Outra& outra : outras) {
        AcDbEntity* entidade = nullptr;
        if (acdbOpenAcDbEntity(entidade, outra.id, AcDb::kForWrite) != Acad::eOk) continue;
        if (const auto* peca = ZpObject::cast(entidade)) outra.apaga = Acesso::de(*peca).chapa();
        const bool some = outra.apaga && !desmancha;
        if (some)
            (void)entidade->erase();  // open for write and alive
        else
            esqueceDona(*entidade, id);
        (void)entidade->close();
        if (some) leva(outra.id, desmancha);
    }
}

void Desenho::desprende(AcDbObjectId dona, AcDbObjectId id) {
    AcDbEntity* peca = nullptr;
    if (acdbOpenAcDbEntity(peca, dona, AcDb::kForWrite) != Acad::eOk) return;
    if (auto* objeto = ZpObject::cast(peca);
        objeto != nullptr && Acesso::de(*objeto).ligacao(id) != nullptr) {
        objeto->assertWriteEnabled();
        Peca& p = Acesso::de(*objeto);
        const Ligacao* ligacao = p.ligacao(id);
        m_desfeitas[id.asOldId()].push_back({dona, ligacao - p.ligadas().data(), *ligacao});
        p.desliga(id);
    }
    (void)peca->close();
}

/// The other way round of leva: what had gone along comes back, and both sides know of each other.
void Desenho::traz(AcDbObjectId id, Fila& donas) {
    std::vector<AcDbObjectId> outras;
    {
        const AcDbObjectPointer<AcDbEntity> devolvida(id, AcDb::kForRead);
        if (devolvida.object() == nullptr) return;
        if (const auto* peca = ZpObject::cast(devolvida.object()))
            for (const Ligacao& l : Acesso::de(*peca).ligadas())
                if (l.papel != Ligacao::Papel::Dona) outras.push_back(l.id);
    }
    for (const AcDbObjectId& outra : outras | std::views::reverse) {
        AcDbEntity* entidade = nullptr;
        if (acdbOpenAcDbEntity(entidade, outra, AcDb::kForWrite, true) != Acad::eOk) continue;
        const auto* peca = ZpObject::cast(entidade);
        const bool foi = entidade->isErased() && (peca == nullptr || Acesso::de(*peca).chapa());
        if (foi) (void)entidade->erase(Adesk::kFalse);  // open for write and erased
        if (!entidade->isErased()) lembraDona(*entidade, id);
        (void)entidade->close();
        if (foi) traz(outra, donas);
    }
    prende(id, donas);
}

/// The pieces that forgot what was erased alone know it again as they did.
void Desenho::prende(AcDbObjectId id, Fila& donas) {
    const auto achada = m_desfeitas.find(id.asOldId());
    if (achada == m_desfeitas.end()) return;
    for (const Desfeita& desfeita : achada->second | std::views::reverse) {
        const AcDbObjectPointer<ZpObject> dona(desfeita.dona, AcDb::kForWrite);
        if (dona.object() == nullptr || Acesso::de(*dona.object()).ligacao(id) != nullptr) continue;
        dona->assertWriteEnabled();
        Acesso::de(*dona.object()).insere(desfeita.lugar, desfeita.ligacao);
        donas.poe(desfeita.dona);
    }
    m_desfeitas.erase(achada);
}

void Desenho::colocaPresas(AcDbObjectId id) {
    const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
    if (peca.object() != nullptr)
        coloca(*peca, [this](AcDbObjectId presa) { m_presas.poe(presa); });
}

void Desenho::segue() {
    const Fila mudadas = std::exchange(m_mudadas, {});
    for (const AcDbObjectId& id : mudadas.ordem()) {
        const AcDbObjectPointer<AcDbEntity> entidade(id, AcDb::kForRead);
        if (entidade.openStatus() == Acad::eWasOpenForWrite) m_presas.poe(id);
        if (const auto* peca = ZpObject::cast(entidade.object()))
            coloca(*peca, [this](AcDbObjectId presa) { m_presas.poe(presa); });
    }
    for (const AcDbObjectId& id : mudadas.ordem()) aprendeDeNovo(id, mudadas);
}

void Desenho::aprendeDeNovo(AcDbObjectId id, const Fila& mudadas) {
    const AcDbObjectPointer<AcDbEntity> entidade(id, AcDb::kForRead);
    if (entidade.object() == nullptr) return;
    for (const AcDbObjectId& dona : donasDe(*entidade.object())) {
        if (mudadas.tem(dona)) continue;
        const AcDbObjectPointer<ZpObject> peca(dona, AcDb::kForWrite);
        if (peca.object() != nullptr)
            aprende(*peca.object(), *entidade.object());
        else if (peca.openStatus() == Acad::eWasOpenForWrite ||
                 peca.openStatus() == Acad::eWasOpenForRead)
            m_presas.poe(id);
    }
}

}  // namespace

void comeca() {
    if (!g_estado.commands) g_estado.commands = std::make_unique<CommandWatch>();
}

void encerra() {
    g_estado.desenhos.clear();
    g_estado.commands.reset();
}

void observa(AcDbDatabase* desenho) {
    if (desenho == nullptr) return;
    std::erase_if(g_estado.desenhos, [](const auto& d) { return d->desenho() == nullptr; });
    for (const auto& d : g_estado.desenhos)
        if (d->desenho() == desenho) return;
    g_estado.desenhos.push_back(std::make_unique<Desenho>(desenho));
}

void observaLeitura(AcDbDatabase* desenho) {
    const auto seu = [&](const auto& d) { return d->desenho() == desenho; };
    if (desenho == nullptr || std::ranges::any_of(g_estado.desenhos, seu)) return;
    observa(desenho);
    g_estado.desenhos.back()->comecaLeitura();
}

void confere(AcDbDatabase* desenho) {
    for (const auto& d : g_estado.desenhos) {
        if (desenho == nullptr || d->desenho() != desenho) continue;
        d->confereTudo();
        d->aplica(false);
    }
}

AcDbObjectId pecaMarcada(AcDbDatabase* desenho, const AcGePoint3d& ponta) {
    for (const auto& d : g_estado.desenhos) {
        if (desenho == nullptr || d->desenho() != desenho) continue;
        for (const auto& [chapa, canto] : {std::pair{false, 0}, {true, 2}, {false, 2}, {true, 0}})
            if (const AcDbObjectId id = d->ultimaCom(chapa, canto, ponta); !id.isNull()) return id;
    }
    return {};
}

void abandona(AcDbDatabase* desenho) {
    std::erase_if(g_estado.desenhos, [&](const auto& d) {
        return d->desenho() == desenho || d->desenho() == nullptr;
    });
}

}  // namespace zp::vigia
