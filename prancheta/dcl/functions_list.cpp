// SPDX-License-Identifier: MIT
// Dialog functions: rows of list boxes and popups.
#include <utility>

#include "adsdlg.h"
#include "prancheta/base/event.h"
#include "prancheta/base/text.h"
#include "prancheta/dcl/kinds.h"
#include "prancheta/dcl/session.h"
#include "prancheta/dcl/tile_value.h"

using namespace prancheta;
using namespace prancheta::dcl;

namespace {

constexpr std::size_t kMostRows = 32768;

void recordList(const ListInProgress& list) {
    EventList rows;
    // What was added stands at the end.
    const std::vector<std::wstring>& all = list.tile->rows;
    const std::size_t first = list.operation == LIST_CHANGE ? list.index : all.size() - list.given;
    for (std::size_t i = 0; i < list.given; ++i) rows.push_back({toUtf8(all[first + i])});
    record({"lista",
            {{"chave", {list.tile->key}},
             {"operacao", {static_cast<long long>(list.operation)}},
             {"linhas", {std::move(rows)}}}});
}

}  // namespace

int ads_start_list(ads_hdlg dialog, const ACHAR* key, short operation, short index) {
    const TileAddress at = tileAt(dialog, key);
    if (!at || !isList(at.tile->kind) || session().list.tile != nullptr) return RTERROR;
    if (operation < LIST_CHANGE || operation > LIST_NEW) return RTERROR;
    const bool exists = index >= 0 && static_cast<std::size_t>(index) < at.tile->rows.size();
    if (operation == LIST_CHANGE && !exists) return RTERROR;
    if (operation == LIST_NEW) {
        at.tile->rows.clear();
        at.tile->value.clear();
    }
    session().list = {at.dialog, at.tile, operation, exists ? static_cast<std::size_t>(index) : 0,
                      0};
    return RTNORM;
}

int ads_add_list(const ACHAR* item) {
    ListInProgress& list = session().list;
    if (list.tile == nullptr || item == nullptr) return RTERROR;
    if (list.operation == LIST_CHANGE) {
        // One item is changed; the rows after it are not the program's to overwrite.
        if (list.given != 0) return RTERROR;
        list.tile->rows[list.index] = item;
    } else {
        if (list.tile->rows.size() >= kMostRows) return RTERROR;
        list.tile->rows.emplace_back(item);
    }
    ++list.given;
    return RTNORM;
}

int ads_end_list() {
    ListInProgress& list = session().list;
    if (list.tile == nullptr) return RTERROR;
    const ListInProgress ended = std::exchange(list, {});
    showFirstRow(*ended.tile);
    if (recording()) recordList(ended);
    ended.dialog->changed(*ended.tile);
    return RTNORM;
}
