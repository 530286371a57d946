// SPDX-License-Identifier: MIT
// What was copied, to be pasted into any drawing.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "dbapserv.h"
#include "prancheta/base/result.h"

namespace prancheta {

/// Keeps the copies in the model space of a drawing of their own, with the layers, styles and
/// blocks that they need, for as long as the editor lives. Modules never see that drawing as the
/// working one.
class Clipboard {
public:
    using Ids = std::vector<AcDbObjectId>;

    /// Copies these in place of what was there, when at least one can be copied. No base: the lower
    /// left corner of their box. Returns the
    /// originals of the copies; `left` grows by the entities that stay behind, in blocks too.
    /// O(entities).
    Ids take(const Ids& ids, std::optional<AcGePoint3d> base, std::size_t& left);
    /// The same from a drawing that was read; all of its model space.
    void take(std::shared_ptr<AcDbDatabase> drawing, std::optional<AcGePoint3d> base);
    /// Writes them as DXF of release 2000, for other programs.
    Result<void> write(const std::filesystem::path& file) const;

    /// Null when nothing was copied yet.
    const std::shared_ptr<AcDbDatabase>& drawing() const { return m_drawing; }
    Ids ids() const;
    /// World coordinates of the drawing that it came from.
    const AcGePoint3d& base() const { return m_base; }

private:
    std::shared_ptr<AcDbDatabase> m_drawing;
    AcGePoint3d m_base;
};

}  // namespace prancheta
