// SPDX-License-Identifier: MIT
// A new piece between its entry in the drawing and its closing.
#pragma once

#include <memory>

#include "perfis/entities/zpobject.h"

namespace perfis {

/// Puts the piece on the profiles' layer and gives it its bar type.
void prepare(ZpObject& peca, int tipoBarra);

/// Appends a piece to the current space and keeps it open until close() or the end of the scope.
class OpenPeca {
public:
    explicit OpenPeca(std::unique_ptr<ZpObject> peca);
    OpenPeca(const OpenPeca&) = delete;
    OpenPeca& operator=(const OpenPeca&) = delete;
    ~OpenPeca() { close(); }

    /// False when the drawing did not take the piece, which is gone then.
    bool resident() const { return !m_id.isNull(); }
    AcDbObjectId id() const { return m_id; }
    ZpObject* operator->() const { return m_peca; }
    ZpObject& operator*() const { return *m_peca; }
    void close();

private:
    ZpObject* m_peca = nullptr;
    AcDbObjectId m_id;
};

}  // namespace perfis
