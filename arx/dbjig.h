// SPDX-License-Identifier: MIT
// Dragging an entity that is not yet in the drawing.
#pragma once

#include "dbmain.h"

class AcEdJig : public AcRxObject {
public:
    ACRX_DECLARE_MEMBERS(AcEdJig);

    enum DragStatus {
        kModeless = -17,
        kNoChange = -6,
        kCancel = -4,
        kOther = -3,
        kNull = -1,
        kNormal = 0,
        kKW1,
        kKW2,
        kKW3,
        kKW4,
        kKW5,
        kKW6,
        kKW7,
        kKW8,
        kKW9,
    };
    enum UserInputControls {
        kGovernedByOrthoMode = 0x1,
        kNullResponseAccepted = 0x2,
        kDontEchoCancelForCtrlC = 0x4,
        kDontUpdateLastPoint = 0x8,
        kNoDwgLimitsChecking = 0x10,
        kNoZeroResponseAccepted = 0x20,
        kNoNegativeResponseAccepted = 0x40,
        kAccept3dCoordinates = 0x80,
        kAcceptMouseUpAsPoint = 0x100,
        kAnyBlankTerminatesInput = 0x200,
        kInitialBlankTerminatesInput = 0x400,
        kAcceptOtherInputString = 0x800,
        kGovernedByUCSDetect = 0x1000,
        kNoZDirectionOrtho = 0x2000,
    };

    AcEdJig();
    ~AcEdJig() override;
    AcEdJig(const AcEdJig&) = delete;
    AcEdJig& operator=(const AcEdJig&) = delete;

    /// Runs sampler, update and the picture of entity() until the user picks, answers or cancels.
    DragStatus drag();
    /// Polls the pointer; the default acquires nothing.
    virtual DragStatus sampler();
    virtual Adesk::Boolean update();
    virtual AcDbEntity* entity() const;
    /// Adds the entity to the current space, closes it and returns its id.
    AcDbObjectId append();

    void setDispPrompt(const ACHAR* format, ...);
    void setKeywordList(const ACHAR* keywords);
    void setUserInputControls(UserInputControls controls);
    UserInputControls userInputControls() const { return m_controls; }

protected:
    /// World coordinates; `base` draws the rubber band and serves direct distance entry.
    DragStatus acquirePoint(AcGePoint3d& value);
    DragStatus acquirePoint(AcGePoint3d& value, const AcGePoint3d& base);
    DragStatus acquireDist(double& value, const AcGePoint3d& base);
    DragStatus acquireAngle(double& value, const AcGePoint3d& base);

private:
    struct Session;
    std::unique_ptr<Session> m_session;
    UserInputControls m_controls = static_cast<UserInputControls>(0);
};
