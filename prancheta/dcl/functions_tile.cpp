// SPDX-License-Identifier: MIT
// Dialog functions: values, modes, callbacks and attributes of tiles.
#include "adsdlg.h"
#include "prancheta/base/event.h"
#include "prancheta/base/text.h"
#include "prancheta/dcl/session.h"
#include "prancheta/dcl/tile_value.h"

using namespace prancheta;
using namespace prancheta::dcl;

namespace {

int attributeOut(const Tile* tile, const ACHAR* attribute, ACHAR* value, int length) {
    copyOut({}, value, length);
    if (tile == nullptr || attribute == nullptr || value == nullptr) return RTERROR;
    copyOut(toWide(tile->attribute(toUtf8(attribute))), value, length);
    return RTNORM;
}

}  // namespace

int ads_action_tile(ads_hdlg dialog, const ACHAR* key, CLIENTFUNC callback) {
    const TileAddress at = tileAt(dialog, key);
    if (!at) return RTERROR;
    at.tile->action = callback;
    return RTNORM;
}

int ads_client_data_tile(ads_hdlg dialog, const ACHAR* key, CLIENTDATA data) {
    const TileAddress at = tileAt(dialog, key);
    if (!at) return RTERROR;
    at.tile->clientData = data;
    return RTNORM;
}

int ads_set_tile(ads_hdlg dialog, const ACHAR* key, const ACHAR* value) {
    const TileAddress at = tileAt(dialog, key);
    if (!at || value == nullptr || session().list.dialog == at.dialog) return RTERROR;
    if (!setValue(*at.tile, value)) return RTERROR;
    if (recording()) record({"valor", {{"chave", {at.tile->key}}, {"valor", {toUtf8(value)}}}});
    at.dialog->changed(*at.tile);
    return RTNORM;
}

int ads_get_tile(ads_hdlg dialog, const ACHAR* key, ACHAR* value, int length) {
    copyOut({}, value, length);
    const TileAddress at = tileAt(dialog, key);
    if (!at || value == nullptr) return RTERROR;
    copyOut(at.tile->value, value, length);
    return RTNORM;
}

int ads_get_attr(ads_hdlg dialog, const ACHAR* key, const ACHAR* attribute, ACHAR* value,
                 int length) {
    return attributeOut(tileAt(dialog, key).tile, attribute, value, length);
}

int ads_get_attr_string(ads_htile handle, const ACHAR* attribute, ACHAR* value, int length) {
    const Tile* tile = nullptr;
    for (const auto& dialog : session().open)
        if (tile == nullptr) tile = dialog->tileOf(handle);
    return attributeOut(tile, attribute, value, length);
}

int ads_mode_tile(ads_hdlg dialog, const ACHAR* key, short mode) {
    const TileAddress at = tileAt(dialog, key);
    if (!at || mode < MODE_ENABLE || mode > MODE_FLIP) return RTERROR;
    if (recording())
        record({"modo", {{"chave", {at.tile->key}}, {"modo", {static_cast<long long>(mode)}}}});
    return at.dialog->setMode(*at.tile, mode) ? RTNORM : RTERROR;
}
