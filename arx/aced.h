// SPDX-License-Identifier: MIT
// The editor and its reactors.
#pragma once

#include "accmd.h"
#include "dbmain.h"

/// Told of commands by their global names. `commandEnded` and `commandCancelled` run before the
/// command's undo step is closed: what they change belongs to it.
class AcEditorReactor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditorReactor);
    virtual void commandWillStart(const ACHAR*) {}
    virtual void commandEnded(const ACHAR*) {}
    virtual void commandCancelled(const ACHAR*) {}
    virtual void commandFailed(const ACHAR*) {}
};

class AcEditor : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEditor);
    virtual void addReactor(AcEditorReactor* reactor) = 0;
    virtual void removeReactor(AcEditorReactor* reactor) = 0;
};

AcEditor* acedEditorFunction();
#define acedEditor acedEditorFunction()
