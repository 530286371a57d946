// SPDX-License-Identifier: MIT
// Layouts: sheets of paper and the model, as the tabs of a drawing.
#pragma once

#include <string>

#include "dbapserv.h"

/// One tab: a name, a place among the tabs, the sheet it is plotted on and the block that holds its
/// entities. Millimetres; the sheet as it comes from the printer, before it is turned.
class AcDbLayout : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbLayout);
    AcDbLayout() = default;

    enum PlotRotation { k0degrees = 0, k90degrees, k180degrees, k270degrees };

    const std::wstring& layoutName() const { return m_name; }
    /// Counts from 0, which is the model's.
    int tabOrder() const { return m_tabOrder; }
    AcDbObjectId blockTableRecordId() const { return m_block; }
    void getPlotPaperSize(double& width, double& height) const;
    const std::wstring& canonicalMediaName() const { return m_media; }
    PlotRotation plotRotation() const { return static_cast<PlotRotation>(m_rotation); }
    /// What the printer leaves free.
    void getPlotPaperMargins(double& left, double& bottom, double& right, double& top) const;

    Acad::ErrorStatus setLayoutName(const ACHAR* name);
    Acad::ErrorStatus setTabOrder(int order);
    Acad::ErrorStatus setBlockTableRecordId(AcDbObjectId id);
    /// eInvalidInput for a sheet without a size.
    Acad::ErrorStatus setPlotPaper(const ACHAR* media, double width, double height);
    Acad::ErrorStatus setPlotRotation(PlotRotation rotation);
    Acad::ErrorStatus setPlotPaperMargins(double left, double bottom, double right, double top);

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

private:
    std::wstring m_name;
    std::wstring m_media;
    AcDbObjectId m_block;
    double m_paper[2] = {297.0, 210.0};
    double m_margins[4] = {};  ///< left, bottom, right, top
    Adesk::Int32 m_tabOrder = 0;
    Adesk::Int16 m_rotation = k0degrees;
};
