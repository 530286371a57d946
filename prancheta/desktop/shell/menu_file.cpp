// SPDX-License-Identifier: MIT
// Reads menus.json.
#include "prancheta/desktop/shell/menu_file.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <algorithm>

#include "prancheta/base/file.h"

namespace prancheta::desktop {
namespace {

struct TextKey {
    const char* name;
    QString MenuItem::*member;
};

constexpr TextKey kTextKeys[] = {
    {"titulo", &MenuItem::title}, {"comando", &MenuItem::command}, {"acao", &MenuItem::action},
    {"icone", &MenuItem::icon},   {"slide", &MenuItem::slide},     {"atalho", &MenuItem::shortcut},
    {"dica", &MenuItem::tip},
};

class Reader {
public:
    explicit Reader(std::string file) : m_file(std::move(file)) {}

    Result<MenuFile> read(const QJsonObject& root) {
        MenuFile out;
        for (const auto& menu : root["menus"].toArray()) out.menus.push_back(item(menu, "menus"));
        checkMnemonics(out.menus, "menus");
        for (const auto& bar : root["barras"].toArray()) out.toolbars.push_back(toolbar(bar));
        for (const auto& title : root["inicio"].toArray())
            out.start.push_back(family(QJsonObject{{"familia", title}}, "em inicio"));
        if (out.menus.empty()) fail("não há nenhum menu em \"menus\"");
        if (m_error.isEmpty()) return out;
        return Error{m_error.toStdString(), m_file, 0, 0};
    }

private:
    void fail(const QString& what) {
        if (m_error.isEmpty()) m_error = what;
    }

    MenuItem item(const QJsonValue& value, const QString& where) {
        MenuItem out;
        if (value.toString() == "-") return out;
        const QJsonObject object = value.toObject();
        if (object.isEmpty()) fail("em " + where + ": um item é um objeto ou \"-\"");
        out.title = object["titulo"].toString();
        for (auto it = object.begin(); it != object.end(); ++it)
            readKey(out, it.key(), it.value(), where);
        const QString name = where + " > " + out.title;
        if (out.title.isEmpty()) fail("em " + where + ": falta \"titulo\" num item");
        const int ways = !out.command.isEmpty() + !out.action.isEmpty() + !out.items.empty();
        if (ways != 1)
            fail("em " + name +
                 ": o item precisa de um só entre \"comando\", \"acao\" e \"itens\"");
        checkMnemonics(out.items, name);
        if (!out.items.empty()) m_submenus.insert(plain(out.title), entriesOf(out.items));
        if (!out.command.isEmpty()) m_known.insert(out.command);
        if (!out.action.isEmpty()) m_known.insert(out.action);
        return out;
    }

    void readKey(MenuItem& out, const QString& key, const QJsonValue& value, const QString& where) {
        if (key == "itens") {
            const QString inside = where + " > " + out.title;
            for (const auto& child : value.toArray()) out.items.push_back(item(child, inside));
            return;
        }
        for (const TextKey& known : kTextKeys) {
            if (key != known.name) continue;
            if (!value.isString())
                fail("em " + where + ": o valor de \"" + key + "\" não é um texto");
            out.*known.member = value.toString();
            return;
        }
        fail("em " + where + ": \"" + key + "\" não é conhecido");
    }

    void checkMnemonics(const std::vector<MenuItem>& items, const QString& where) {
        QSet<QChar> seen;
        for (const MenuItem& item : items) {
            const qsizetype mark = item.title.indexOf('&');
            if (mark < 0 || mark + 1 >= item.title.size()) continue;
            const QChar letter = item.title[mark + 1].toLower();
            if (seen.contains(letter))
                fail("em " + where + ": a letra " + letter + " de \"" + item.title +
                     "\" já é de outro item");
            seen.insert(letter);
        }
    }

    static QString plain(QString title) { return title.remove('&'); }

    static std::vector<QString> entriesOf(const std::vector<MenuItem>& items) {
        std::vector<QString> out;
        for (const MenuItem& item : items)
            if (!item.command.isEmpty() || !item.action.isEmpty())
                out.push_back(item.command.isEmpty() ? item.action : item.command);
        return out;
    }

    QString known(const QString& name, const QString& where) {
        if (!m_known.contains(name)) fail(where + ": nenhum menu tem \"" + name + "\"");
        return name;
    }

    Family family(const QJsonObject& object, const QString& where) {
        Family out{object["familia"].toString(), {}};
        for (const auto& entry : object["itens"].toArray())
            out.entries.push_back(known(entry.toString(), where));
        if (out.entries.empty()) out.entries = m_submenus.value(out.title);
        if (out.entries.empty())
            fail(where + ": a família \"" + out.title +
                 "\" não tem \"itens\", e nenhum submenu tem este título");
        return out;
    }

    ToolbarItem toolbarItem(const QJsonValue& value, const QString& where) {
        ToolbarItem out;
        if (!value.isObject()) {
            const QString name = value.toString();
            if (name != "-") out.entry = known(name, where);
            return out;
        }
        const QJsonObject object = value.toObject();
        if (object.contains("familia")) {
            out.family = family(object, where);
            return out;
        }
        out.field = object["campo"].toString();
        if (std::find(std::begin(kToolbarFields), std::end(kToolbarFields), out.field) ==
            std::end(kToolbarFields))
            fail(where +
                 ": um item é um comando, \"-\", uma \"familia\" ou um \"campo\" (camada, "
                 "cor, tipo-de-linha, espessura, escala)");
        return out;
    }

    Toolbar toolbar(const QJsonValue& value) {
        const QJsonObject object = value.toObject();
        Toolbar out;
        out.title = object["titulo"].toString();
        out.left = object["lado"].toString() == "esquerda";
        out.newRow = object["nova_linha"].toBool();
        if (out.title.isEmpty()) fail("em barras: falta \"titulo\"");
        if (object.contains("lado") && !out.left)
            fail("na barra " + out.title + ": \"lado\" só pode ser \"esquerda\"");
        for (const auto& entry : object["itens"].toArray())
            out.items.push_back(toolbarItem(entry, "na barra " + out.title));
        return out;
    }

    std::string m_file;
    QString m_error;
    QSet<QString> m_known;
    QHash<QString, std::vector<QString>> m_submenus;  ///< entries by title
};

}  // namespace

Result<MenuFile> readMenus(const std::filesystem::path& file) {
    const Result<std::string> bytes = readFile(file);
    if (!bytes) return bytes.error();
    const QByteArray text = QByteArray::fromStdString(*bytes);
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(text, &problem);
    if (problem.error != QJsonParseError::NoError) {
        const QByteArray before = text.left(problem.offset);
        const auto line = static_cast<int>(before.count('\n')) + 1;
        const auto column = static_cast<int>(before.size() - (before.lastIndexOf('\n') + 1)) + 1;
        return Error{"o texto não é JSON: confira vírgulas, aspas e colchetes perto daqui",
                     file.string(), line, column};
    }
    return Reader(file.string()).read(document.object());
}

}  // namespace prancheta::desktop
