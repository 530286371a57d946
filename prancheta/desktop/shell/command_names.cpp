// SPDX-License-Identifier: MIT
// The completion list.
#include "prancheta/desktop/shell/command_names.h"

#include <QStandardItemModel>

#include <map>
#include <vector>

#include "accmd.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/command_stack.h"
#include "prancheta/editor/variables.h"

namespace prancheta::desktop {
namespace {

/// What is typed, upper case, and what stands behind it.
using Names = std::map<std::wstring, std::wstring>;

std::wstring upper(std::wstring_view text) {
    return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size()))
        .toUpper()
        .toStdWString();
}

void addCommands(const CommandStack& stack, Names& names) {
    const std::unique_ptr<AcEdCommandIterator> iterator(stack.iterator());
    for (; !iterator->done(); (void)iterator->next()) {
        const AcEdCommand& command = *iterator->command();
        const std::wstring local = upper(command.localName());
        const std::wstring global = L"_" + upper(command.globalName());
        names.try_emplace(local, std::wstring());
        names.try_emplace(withoutAccents(local), local);
        names.try_emplace(global, global.substr(1) == local ? std::wstring() : local);
    }
}

}  // namespace

QAbstractItemModel* makeCommandNames(Editor& editor, QObject* parent) {
    Names names;
    addCommands(editor.commands(), names);
    for (const auto& [alias, command] : editor.aliases().all()) {
        const StackCommand* const target = editor.commands().find(TypedName(command));
        names.try_emplace(upper(alias), target != nullptr ? upper(target->local) : command);
    }
    Names variables;
    for (const VariableInfo& variable : editor.variables().all())
        if (!names.contains(variable.name)) variables.emplace(variable.name, L"variável");
    // A command is meant more often than a variable that begins alike.
    std::vector<std::pair<std::wstring, std::wstring>> rows(names.begin(), names.end());
    rows.insert(rows.end(), variables.begin(), variables.end());
    auto* const model = new QStandardItemModel(static_cast<int>(rows.size()), 1, parent);
    int row = 0;
    for (const auto& [name, target] : rows) {
        const QString typed = QString::fromStdWString(name);
        const QString behind = QString::fromStdWString(target);
        const QModelIndex at = model->index(row++, 0);
        model->setData(at, behind.isEmpty() ? typed : typed + "  (" + behind + ")",
                       Qt::DisplayRole);
        model->setData(at, typed, Qt::UserRole);
    }
    return model;
}

}  // namespace prancheta::desktop
