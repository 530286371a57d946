// SPDX-License-Identifier: MIT
// Dimensions as they are read: those drawn here are laid out anew, those of other programs keep
// their pictures and groups.
#include "prancheta/database/object_access.h"
#include "prancheta/dxf/dimension_type.h"
#include "prancheta/dxf/loader.h"
#include "prancheta/dxf/upgrade.h"

namespace prancheta::dxf {
namespace {

/// The record of a block whose picture was drawn here says so.
bool isDrawnHere(const FileBlock& block) {
    return block.record.find(kPieceApplication) != std::string_view::npos;
}

}  // namespace

bool Loader::takeDimension(std::string_view type, AcDbDimension& dimension) {
    const ObjectExtra* const extra = ObjectAccess::extra(dimension);
    const RawTags inFile = extra != nullptr ? RawTags(extra->xdata) : RawTags();
    RawTags xdata = inFile;
    (void)dimension.setDimscale(takeDimscale(xdata));
    const std::size_t others = xdata.size();
    if (auto* const linear = dynamic_cast<PranchetaLinearDimension*>(&dimension))
        takeThroughPoint(xdata, *linear);
    if (extra != nullptr) {
        ObjectAccess::makeExtra(dimension).xdata = xdata;
        ObjectAccess::dropEmptyExtra(dimension);
    }
    if (m_values.texts[1].empty()) return true;
    FileBlock& picture = block(m_values.texts[1]);
    if (isDrawnHere(picture) || xdata.size() != others) {
        // Its block is read only when something else uses it.
        picture.ofPicture = true;
        return true;
    }
    RawTags tags;
    if (!appendRaw(tags, m_head.body, charset(), m_fault)) return false;
    if (!tags.empty() && tags.front().code != 100) addSubclassMarkers(type, tags);
    auto filed = std::make_shared<FiledDimension>();
    filed->tags = tags;
    filed->xdata = inFile;
    filed->textMiddle = m_values.points[1];
    m_filed.push_back({&dimension, &picture, std::move(filed)});
    return true;
}

/// Blocks of dimensions that are known by now are wanted.
void Loader::wantFiledBlocks() {
    for (; m_filedWanted < m_filed.size(); ++m_filedWanted) {
        LaterDimension& each = m_filed[m_filedWanted];
        if (each.block->content.empty() && !each.block->isRead)
            each.block->ofPicture = true;
        else
            each.filed->block = makeBlock(*each.block);
    }
}

/// Styles are complete now. A block without content shows nothing: the dimension does it itself.
void Loader::keepFiledDimensions() {
    for (LaterDimension& each : m_filed) {
        const AcDbStub* const stub = each.filed->block;
        if (stub == nullptr) continue;
        const auto& record = static_cast<const AcDbBlockTableRecord&>(*stub->object);
        if (ObjectAccess::entities(record).empty()) continue;
        each.filed->style = styleMark(*each.dimension);
        each.dimension->keepFiled(std::move(each.filed));
    }
}

}  // namespace prancheta::dxf
