#pragma once

#include "MPPXMLDOMFilter/Model/RecordReference.h"
#include "Platform/Time/Date.h"
#include "Platform/Values/Guid.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brackwater {

struct MPPAssignmentBaseline {
    double work = 0; ///< hours
    double cost = 0; ///< hundredths
    std::optional<Date> start;
    std::optional<Date> finish;
};

/// A phase of an assignment's work; the mapping leaves an assignment's list of them empty.
struct MPPAssignmentPhase {
    std::uint32_t startShift = 0;
    std::uint32_t finishShift = 0;
    double work = 0;
    double workPerDay = 8.0;
};

/// The work done up to a moment of an assignment's working time, and the rate of the phase that ends there.
struct MPPWorkPhase {
    double work = 0;    ///< hours since the start of the spread
    double units = 0;   ///< as the assignment's; 0 in a gap
    double elapsed = 0; ///< seconds of working time since the start of the spread
};

/// The distribution of work over working time.
struct MPPWorkSpread {
    double work = 0;    ///< hours
    double units = 0;   ///< as the assignment's; 0 without work
    double elapsed = 0; ///< seconds of working time, including gaps
    std::vector<MPPWorkPhase> phases;
};

/// The actual work, from the assignment's start to where it stopped, and the rest, from where it resumes.
struct MPPWorkOverTime {
    MPPWorkSpread actual;
    MPPWorkSpread planned; ///< no phases if the rest is even
    bool isSplit = false;
};

/// A resource's work on a task. Work is in hours; 100 % of units is 10000.0.
struct MPPAssignment {
    MPPAssignment() : _GUID(Guid::random()) {}

    std::uint64_t ID = 0;
    TaskReference task;
    ResourceReference resource; ///< unset: work without a resource
    std::optional<std::string> notes;
    double work = 0;
    double actualWork = 0;
    double remainingWork = 0;
    double assignmentUnits = 10000.0;
    double unitOfMaterial = 1.0; ///< the row's value for one unit of material; readers expect 10000
    double cost = 0;
    double actualCost = 0;
    double remainingCost = 0;
    std::optional<Date> creationDate;
    std::optional<Date> startDate;
    std::optional<Date> finishDate;
    std::optional<Date> stopDate;
    std::optional<Date> resumeDate;
    std::vector<std::shared_ptr<MPPAssignmentBaseline>> baselines;
    std::shared_ptr<MPPAssignmentBaseline> baseline0;
    std::vector<MPPAssignmentPhase> assignmentPhases;
    std::unique_ptr<MPPWorkOverTime> workOverTime; ///< replaces `assignmentPhases`; null in an exact export

    std::uint32_t row48 = 1; ///< meaning unknown: 0 in real files for work without a resource

    [[nodiscard]] const Guid& GUID() const noexcept { return _GUID; }
    void setGUID(const Guid& guid) noexcept { _GUID = guid; }
    [[nodiscard]] std::uint16_t getDelay() const { return 0; }
    [[nodiscard]] std::string description() const;
    /// Appends the description without creating a string: a line is logged for each assignment.
    void appendDescriptionTo(std::string& text) const;

private:
    Guid _GUID;
};

} // namespace brackwater
