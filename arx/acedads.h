// SPDX-License-Identifier: MIT
// User input, system variables, commands and coordinate systems.
#pragma once

#include "acutads.h"

/// Pauses acedCommand for one answer of the user.
#define PAUSE L"\\"

/// Writes to the command history, unformatted. Returns RTNORM.
int acedPrompt(const ACHAR* text);

/// Modal box with one button; line feeds break lines. Returns RTNORM.
int acedAlert(const ACHAR* text);

/// Error text on the command line. Returns RTNORM.
int acdbFail(const ACHAR* text);

/// Bits (RSG_*) and keywords (separated by blanks, capitals abbreviate, `_` separates local from
/// global lists) for the next input call.
int acedInitGet(int bits, const ACHAR* keywords);

/// Points of these calls are in the user system. RTNORM, RTCAN on Esc, RTNONE for a bare Enter,
/// RTKWORD for a keyword, RTERROR for bad arguments or while a dialog is open. `base` and `prompt`
/// may be null.
int acedGetPoint(const ads_point base, const ACHAR* prompt, ads_point result);
int acedGetCorner(const ads_point base, const ACHAR* prompt, ads_point result);
int acedGetDist(const ads_point base, const ACHAR* prompt, ads_real* result);
int acedGetAngle(const ads_point base, const ACHAR* prompt, ads_real* result);
int acedGetOrient(const ads_point base, const ACHAR* prompt, ads_real* result);
int acedGetInt(const ACHAR* prompt, int* result);
int acedGetReal(const ACHAR* prompt, ads_real* result);
/// `result` holds 133 characters; `cronly` non-zero lets blanks into the text.
int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result);
int acedGetKword(const ACHAR* prompt, ACHAR* result);
/// Text of the last RTKWORD.
int acedGetInput(ACHAR* text);

/// One entity; `point` is where it was picked. RTERROR on an empty pick.
int acedEntSel(const ACHAR* prompt, ads_name entity, ads_point point);

/// Selection set: null mode asks the user; "_X" all, "_L" last, "_P" previous, "_W"/"_C" two
/// corners,
/// "_I" the set selected before the command. Free with acedSSFree.
int acedSSGet(const ACHAR* mode, const void* p1, const void* p2, const resbuf* filter,
              ads_name set);
int acedSSLength(const ads_name set, Adesk::Int32* length);
int acedSSName(const ads_name set, Adesk::Int32 index, ads_name entity);
int acedSSAdd(const ads_name entity, const ads_name set, ads_name result);
int acedSSFree(const ads_name set);

/// Typed value of a system variable. A text is allocated on the host's heap and freed by the
/// caller.
int acedGetVar(const ACHAR* name, resbuf* value);
/// `value->restype` must be the variable's own type, else RTERROR and nothing changes.
int acedSetVar(const ACHAR* name, const resbuf* value);

/// Between coordinate systems (RTSHORT 0 world, 1 user, 2 display; RTENAME; RT3DPOINT).
/// `displacement` non-zero transforms a direction. `point` and `result` may be the same array.
int acedTrans(const ads_point point, const resbuf* from, const resbuf* to, int displacement,
              ads_point result);

/// Feeds pairs (type, value), ended by RTNONE or 0, to the command line. A command that still
/// waits for input when the list ends stays active. RTERROR while a dialog is open.
int acedCommand(int rtype, ...);
int acedCmd(const resbuf* list);

/// Nearest snap point under `modes` ("_end,_mid"). RTREJ when there is none.
int acedOsnap(const ads_point point, const ACHAR* modes, ads_point result);

/// Number to text and back; unit and precision -1 = current.
int acdbRToS(ads_real value, int unit, int precision, ACHAR* text);
int acdbAngToS(ads_real angle, int unit, int precision, ACHAR* text);
int acdbDisToF(const ACHAR* text, int unit, ads_real* value);
int acdbAngToF(const ACHAR* text, int unit, ads_real* angle);
