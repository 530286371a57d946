// SPDX-License-Identifier: MIT
// How a module tells any host that an answer of the user's was refused, or that a command did not
// do what it was asked.
//
// Header only, on the run-time class system alone, as report.h.
#pragma once

#include <string>

#include "acutads.h"
#include "rxdict.h"

namespace protocol {

/// Object of the system registry under kObjectionsKey, entered by a host that counts such lines: it
/// prints them and a script has gone wrong.
class Objections : public AcRxObject {
public:
    /// The question comes again.
    virtual void refused(const ACHAR* text) = 0;
    virtual void failed(const ACHAR* text) = 0;
    /// The module's command that runs cannot be finished: the host takes back what it did.
    virtual void gaveUp(const ACHAR* text) = 0;
};
inline constexpr const ACHAR* kObjectionsKey = L"ZP_OBJECTIONS";

namespace detail {
inline void object(void (Objections::*how)(const ACHAR*), const std::wstring& text) {
    if (auto* host = static_cast<Objections*>(acrxSysRegistry()->at(kObjectionsKey)))
        (host->*how)(text.c_str());
    else
        acutPrintf(L"\n%ls\n", text.c_str());
}
}  // namespace detail

/// `text` is a whole sentence: what was wrong, what to answer.
inline void refuse(const std::wstring& text) { detail::object(&Objections::refused, text); }
inline void fail(const std::wstring& text) { detail::object(&Objections::failed, text); }
inline void giveUp(const std::wstring& text) { detail::object(&Objections::gaveUp, text); }

}  // namespace protocol
