// SPDX-License-Identifier: MIT
// Record of free groups in a dictionary.
#pragma once

#include "dbdict.h"

class AcDbXrecord : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbXrecord);
    AcDbXrecord();
    ~AcDbXrecord() override;

    /// Copies the list. Codes 1 to 369 except 5 and 105, else eInvalidInput.
    Acad::ErrorStatus setFromRbChain(const resbuf& list, AcDbDatabase* database = nullptr);
    /// Copy of the list, freed by the caller with acutRelRb; null when empty.
    Acad::ErrorStatus rbChain(resbuf** list, AcDbDatabase* database = nullptr) const;
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    friend struct prancheta::ObjectAccess;
    resbuf* m_list = nullptr;
};
