// SPDX-License-Identifier: MIT
// acedCommand, acedCmd.
#include <cstdarg>

#include "acedads.h"
#include "prancheta/dcl/dialog.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/modules.h"
#include "prancheta/editor/program_input.h"

namespace {

using prancheta::Editor;
using prancheta::ProgramToken;

/// A list made of its arguments; texts stay the caller's.
class ArgumentList {
public:
    ArgumentList(int rtype, std::va_list& arguments) {
        for (; rtype != RTNONE && rtype != 0 && m_good; rtype = va_arg(arguments, int)) {
            resbuf element{};
            element.restype = static_cast<short>(rtype);
            m_good = read(element, arguments);
            m_elements.push_back(element);
        }
        for (std::size_t i = 1; i < m_elements.size(); ++i)
            m_elements[i - 1].rbnext = &m_elements[i];
    }
    bool good() const { return m_good; }
    const resbuf* first() const { return m_elements.empty() ? nullptr : m_elements.data(); }

private:
    static bool read(resbuf& element, std::va_list& arguments) {
        switch (element.restype) {
            case RTREAL:
            case RTANG:
            case RTORINT:
                element.resval.rreal = va_arg(arguments, double);
                return true;
            case RTSHORT:
                element.resval.rint = static_cast<short>(va_arg(arguments, int));
                return true;
            case RTLONG:
                element.resval.rlong = va_arg(arguments, Adesk::Int32);
                return true;
            case RTSTR:
                element.resval.rstring = const_cast<ACHAR*>(va_arg(arguments, const ACHAR*));
                return true;
            case RTPOINT:
            case RT3DPOINT: {
                const ads_real* point = va_arg(arguments, const ads_real*);
                if (point == nullptr) return false;
                element.resval.rpoint[X] = point[X];
                element.resval.rpoint[Y] = point[Y];
                element.resval.rpoint[Z] = element.restype == RTPOINT ? 0.0 : point[Z];
                return true;
            }
            case RTENAME:
            case RTPICKS: {
                const std::intptr_t* name = va_arg(arguments, const std::intptr_t*);
                if (name == nullptr) return false;
                ads_name_set(name, element.resval.rlname);
                return true;
            }
            default:
                return element.restype == RTLB || element.restype == RTLE;
        }
    }

    std::vector<resbuf> m_elements;
    bool m_good = true;
};

int send(const resbuf* list) {
    Editor* editor = Editor::current();
    if (editor == nullptr || prancheta::dcl::openDialogs() > 0 || editor->modules().initialising())
        return RTERROR;
    std::vector<ProgramToken> tokens;
    if (!prancheta::readTokens(list, tokens)) return RTERROR;
    prancheta::recordTokens(tokens);
    return editor->runner().sendTokens(std::move(tokens));
}

}  // namespace

int acedCommand(int rtype, ...) {
    std::va_list arguments;
    va_start(arguments, rtype);
    const ArgumentList list(rtype, arguments);
    va_end(arguments);
    return list.good() ? send(list.first()) : RTERROR;
}

int acedCmd(const resbuf* list) { return send(list); }
