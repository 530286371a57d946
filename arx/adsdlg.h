// SPDX-License-Identifier: MIT
// Programmable dialog boxes.
#pragma once

#include "adscodes.h"
#include "adsdef.h"

struct ads_dialog_opaque;
struct ads_tile_opaque;
using ads_hdlg = ads_dialog_opaque*;
using ads_htile = ads_tile_opaque*;
using CLIENTDATA = void*;

#define CALLB

/// What a callback receives; `value` lives only during the call.
struct ads_callback_packet {
    ads_hdlg dialog;
    ads_htile tile;
    CLIENTDATA client_data;
    int value_length;
    int reason;
    ACHAR* value;
    long x;
    long y;
};

using CLIENTFUNC = void (*)(ads_callback_packet*);
#define NULLCB nullptr

enum : int { CBR_SELECT = 1, CBR_LOST_FOCUS = 2, CBR_DRAG = 3, CBR_DOUBLE_CLICK = 4 };
enum : int { DLGOK = 1, DLGCANCEL = 0, DLGALLCANCEL = -1 };
enum : short {
    MODE_ENABLE = 0,
    MODE_DISABLE = 1,
    MODE_SETFOCUS = 2,
    MODE_SETSEL = 3,
    MODE_FLIP = 4
};
enum : short { LIST_CHANGE = 1, LIST_APPEND = 2, LIST_NEW = 3 };

/// Image colours besides 0..255.
enum : short {
    GRAPHICS_BACKGROUND = -2,
    DIALOG_BACKGROUND = -15,
    DIALOG_FOREGROUND = -16,
    DIALOG_LINE = -18
};

/// All return RTNORM or RTERROR. Keys and names are case-sensitive. An unknown key is RTERROR.
int ads_load_dialog(const ACHAR* file, int* dcl_id);
int ads_unload_dialog(int dcl_id);
/// Builds a dialog of a loaded file; `deflt` serves active tiles that have no callback of their
/// own.
int ads_new_dialog(const ACHAR* name, int dcl_id, CLIENTFUNC deflt, ads_hdlg* dialog);
/// Shows it until it ends; `status` is the value given to ads_done_dialog (accept 1, cancel 0).
int ads_start_dialog(ads_hdlg dialog, int* status);
int ads_done_dialog(ads_hdlg dialog, int status);
int ads_term_dialog(void);

int ads_action_tile(ads_hdlg dialog, const ACHAR* key, CLIENTFUNC callback);
int ads_client_data_tile(ads_hdlg dialog, const ACHAR* key, CLIENTDATA data);
/// Never fires a callback.
int ads_set_tile(ads_hdlg dialog, const ACHAR* key, const ACHAR* value);
/// Writes at most `length` characters and the terminator; an unknown key gives an empty text.
int ads_get_tile(ads_hdlg dialog, const ACHAR* key, ACHAR* value, int length);
int ads_get_attr(ads_hdlg dialog, const ACHAR* key, const ACHAR* attribute, ACHAR* value,
                 int length);
int ads_get_attr_string(ads_htile tile, const ACHAR* attribute, ACHAR* value, int length);
int ads_mode_tile(ads_hdlg dialog, const ACHAR* key, short mode);

int ads_start_list(ads_hdlg dialog, const ACHAR* key, short operation, short index);
int ads_add_list(const ACHAR* item);
int ads_end_list(void);

/// Largest coordinates of an image tile: its size in pixels minus one.
int ads_dimensions_tile(ads_hdlg dialog, const ACHAR* key, short* cx, short* cy);
int ads_start_image(ads_hdlg dialog, const ACHAR* key);
int ads_fill_image(short x, short y, short width, short height, short color);
int ads_vector_image(short x1, short y1, short x2, short y2, short color);
int ads_slide_image(short x, short y, short width, short height, const ACHAR* slide);
int ads_end_image(void);
