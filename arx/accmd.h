// SPDX-License-Identifier: MIT
// The command stack.
#pragma once

#include "rxdict.h"

class AcEdUIContext;

enum : Adesk::Int32 {
    ACRX_CMD_MODAL = 0x0,
    ACRX_CMD_TRANSPARENT = 0x1,
    ACRX_CMD_USEPICKSET = 0x2,
    ACRX_CMD_REDRAW = 0x4,
    ACRX_CMD_NOPERSPECTIVE = 0x8,
    ACRX_CMD_NOMULTIPLE = 0x10,
    ACRX_CMD_NOTILEMODE = 0x20,
    ACRX_CMD_NOPAPERSPACE = 0x40,
    ACRX_CMD_NOOEM = 0x100,
    ACRX_CMD_UNDEFINED = 0x200,
    ACRX_CMD_INPROGRESS = 0x400,
    ACRX_CMD_DEFUN = 0x800,
    ACRX_CMD_NONEWSTACK = 0x10000,
    ACRX_CMD_NOINTERNALLOCK = 0x20000,
    ACRX_CMD_DOCREADLOCK = 0x80000,
    ACRX_CMD_DOCEXCLUSIVELOCK = 0x100000,
    ACRX_CMD_SESSION = 0x200000,
    ACRX_CMD_INTERRUPTIBLE = 0x400000,
    ACRX_CMD_NOHISTORY = 0x800000,
    ACRX_CMD_NO_UNDO_MARKER = 0x1000000,
};

/// One registered command. The stack owns it.
class AcEdCommand : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommand);

    virtual const ACHAR* globalName() const = 0;
    virtual const ACHAR* localName() const = 0;
    virtual const ACHAR* groupName() const = 0;
    virtual Adesk::Int32 commandFlags() const = 0;
    virtual AcRxFunctionPtr functionAddr() const = 0;
};

/// Visits every command: groups in search order, commands in the order of registration.
class AcEdCommandIterator : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommandIterator);

    virtual bool done() const = 0;
    virtual bool next() = 0;
    virtual const AcEdCommand* command() const = 0;
    virtual const ACHAR* commandGroup() const = 0;
};

class AcEdCommandStack : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdCommandStack);

    /// Creates the group if needed and copies the texts. eDuplicateKey, and nothing added, when the
    /// group has a command of this global or local name.
    virtual Acad::ErrorStatus addCommand(const ACHAR* group, const ACHAR* globalName,
                                         const ACHAR* localName, Adesk::Int32 flags,
                                         AcRxFunctionPtr function, AcEdUIContext* ui = nullptr,
                                         int fcode = -1, HINSTANCE resources = nullptr,
                                         AcEdCommand** command = nullptr) = 0;
    /// eKeyNotFound for an unknown name.
    virtual Acad::ErrorStatus removeCmd(const ACHAR* group, const ACHAR* globalName) = 0;
    virtual Acad::ErrorStatus removeGroup(const ACHAR* group) = 0;
    /// Null when there is none. Case is ignored.
    virtual AcEdCommand* lookupGlobalCmd(const ACHAR* name) const = 0;
    virtual AcEdCommand* lookupLocalCmd(const ACHAR* name) const = 0;
    /// The caller deletes the iterator.
    virtual AcEdCommandIterator* iterator() const = 0;
};

#define ACRX_REGISTERED_COMMANDS L"ACAD_REGISTERED_COMMANDS"
#define acedRegCmds AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_REGISTERED_COMMANDS))
