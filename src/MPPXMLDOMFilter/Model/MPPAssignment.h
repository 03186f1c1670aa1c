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

/// A stretch of an assignment's work; the mapping leaves an assignment's list of them empty.
struct MPPAssignmentPhase {
    std::uint32_t startShift = 0;
    std::uint32_t finishShift = 0;
    double work = 0;
    double workPerDay = 8.0;
};

/// Work done by a moment of an assignment's working time, and the rate of the stretch that ends there.
struct MPPWorkPhase {
    double work = 0;    ///< hours since the spread's begin
    double units = 0;   ///< as the assignment's; 0 in a pause
    double elapsed = 0; ///< seconds of working time since the spread's begin
};

/// How work is spread over working time.
struct MPPWorkSpread {
    double work = 0;    ///< hours
    double units = 0;   ///< as the assignment's; 0 where there is no work
    double elapsed = 0; ///< seconds of working time, pauses included
    std::vector<MPPWorkPhase> phases;
};

/// The work that is done, from the assignment's start to where it stopped, and the rest, from where it resumes.
struct MPPWorkOverTime {
    MPPWorkSpread actual;
    MPPWorkSpread planned; ///< without phases where the rest goes on evenly
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
    double unitOfMaterial = 1.0; ///< what the row tells of one unit of material; readers take 10000 for one
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
    std::unique_ptr<MPPWorkOverTime> workOverTime; ///< stands for `assignmentPhases`; null in an exact export

    std::uint32_t row48 = 1; ///< meaning unknown: real files hold 0 for work without a resource

    [[nodiscard]] const Guid& GUID() const noexcept { return _GUID; }
    void setGUID(const Guid& guid) noexcept { _GUID = guid; }
    [[nodiscard]] std::uint16_t getDelay() const { return 0; }
    [[nodiscard]] std::string description() const;
    /// The same for a line that is logged for each assignment: without a text of its own.
    void appendDescriptionTo(std::string& text) const;

private:
    Guid _GUID;
};

} // namespace brackwater
