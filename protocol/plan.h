// SPDX-License-Identifier: MIT
// How a module shows any host its cutting plans, and what a host may ask for one.
//
// Header only, on the run-time class system alone, as report.h.
#pragma once

#include <cstddef>

#include "dbapserv.h"

namespace protocol {

/// Receives cutting plans. Lengths in mm; texts are as the user reads them and good during the
/// call.
///
/// A host that shows plans enters one in the system registry under kPlanViewerKey: a command that
/// made a plan shows it there before it asks what becomes of it.
class PlanVisitor : public AcRxObject {
public:
    /// A list that can be planned.
    virtual void list(int number, const ACHAR* group) = 0;
    /// What a plan is made for, as a user types it for the plan's command.
    struct Answers {
        const ACHAR* stock;
        const ACHAR* sawCut;
        const ACHAR* trim;
    };
    virtual void answers(const Answers& given) = 0;

    /// A plan of the list with this number begins.
    virtual void begin(int list) = 0;
    /// The bars that follow are of one product; `line` sums it up.
    virtual void product(const ACHAR* line) = 0;
    /// A member of the product that fits no bar.
    virtual void note(const ACHAR* line) = 0;
    struct Bar {
        double length;
        int count;  ///< cut alike
        bool leftOver;
        double rest;         ///< what can be used again
        double utilisation;  ///< 0 to 1
        const ACHAR* cuts;   ///< all in words
    };
    virtual void bar(const Bar& bar) = 0;
    /// Of the last bar; `at` from its left end.
    virtual void cut(const ACHAR* marca, double at, double length) = 0;
    virtual void end() = 0;
};
inline constexpr const ACHAR* kPlanViewerKey = L"ZP_PLAN_VIEWER";

/// Object of the system registry under kCuttingPlanKey.
class CuttingPlan : public AcRxObject {
public:
    /// Global name of the command that asks which list, when the drawing has several, then for the
    /// answers, and then where the plan is to be drawn.
    virtual const ACHAR* command() const = 0;
    /// Tells the lists and the answers given last.
    virtual void describe(AcDbDatabase& database, PlanVisitor& visitor) const = 0;
    /// Takes answers, which count as given last from then on; the files of the plan are written
    /// with them. False, with a Portuguese reason in `message` (freed with acutDelString), and
    /// nothing taken, when one makes no sense.
    virtual bool use(const PlanVisitor::Answers& given, ACHAR*& message) const = 0;
    /// Plans the list with the answers given last; seconds for a long one. False with a reason, and
    /// nothing told, when there is nothing to plan.
    virtual bool plan(AcDbDatabase& database, int list, PlanVisitor& visitor,
                      ACHAR*& message) const = 0;
    /// Changes when the list is to be planned otherwise. O(rows).
    virtual std::size_t stamp(AcDbDatabase& database, int list) const = 0;
};
inline constexpr const ACHAR* kCuttingPlanKey = L"ZP_CUTTING_PLAN";

/// A file of the list's command has the plan instead of the list when its name ends so.
inline constexpr const ACHAR* kPlanFileEnd = L"-plano";

}  // namespace protocol
