#pragma once

#include "MPPXMLDOMFilter/Model/MPPCalendar.h"
#include "MPPXMLDOMFilter/Model/MPPExtendedAttribute.h"
#include "MPPXMLDOMFilter/Model/MPPSourceValues.h"
#include "MPPXMLDOMFilter/Model/RecordReference.h"
#include "Platform/Time/Date.h"
#include "Platform/Values/Guid.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace brackwater {

/// A task's values in a baseline. A task without one has zeros and null dates.
struct MPPTaskBaseline {
    double duration = 0;  ///< seconds
    double cost = 0;      ///< hundredths
    double fixedCost = 0; ///< hundredths; the cost without that of the assignments
    double work = 0;      ///< hours
    std::optional<Date> start;
    std::optional<Date> finish;
};

/// A moment at which the task reached its percentage, or from which it grows again.
struct MPPProgressPoint {
    bool isBegin = false;
    double percent = 0;
    std::optional<Date> moment; ///< nothing: the end of time
};

/// How far a task can move without moving the end of the project.
struct MPPTaskSlack {
    std::optional<Date> lateStart;
    std::optional<Date> lateFinish;
    double start = 0;  ///< seconds of working time up to the late start
    double finish = 0; ///< up to the late finish
    double free = 0;   ///< without moving a successor
    bool isCritical = false;
};

/// A task. Work is in hours, durations in seconds, percentages are whole numbers.
///
/// The stream writers use the accessors named `get...`, which also define constants for values that the system does not
/// model. Some return null or 0 although a field of the same name exists: a stream that needs the field reads the
/// field.
struct MPPTask {
    MPPTask() : _GUID(Guid::random()) {}
    virtual ~MPPTask() = default;
    MPPTask(const MPPTask&) = delete;
    MPPTask& operator=(const MPPTask&) = delete;

    std::optional<std::string> title;
    std::uint64_t ID = 0;      ///< 0 for the project, 1 to n after preprocessing
    MPPTask* parent = nullptr; ///< not owned
    std::uint64_t outlineLevel = 0;
    std::uint64_t priority = 500;
    std::int32_t taskType = 0; ///< MSPDI task type number
    std::optional<std::string> notes;
    std::optional<Date> createDate;
    std::optional<Date> startDate;
    std::optional<Date> endDate;
    std::optional<Date> actualStart;
    std::optional<Date> actualFinish;
    std::optional<Date> stop;
    std::optional<Date> resume;
    std::optional<Date> constraintDate;
    std::optional<Date> deadline;
    bool estimated = true;
    bool ignoreResourceCalendar = false;
    bool effortDriven = true;
    bool isSummary = false; ///< written as a summary, not only recognized by its children
    bool milestone = false;
    bool levelingCanSplit = true;
    bool notesAreRtf = false; ///< `notes` is RTF; otherwise a text that goes unescaped into a fixed frame
    bool isSplit = false;     ///< worked on in pieces with gaps between them
    double work = 0;
    double remainingWork = 0;
    double actualWork = 0;
    double duration = 0;
    double actualDuration = 0;
    double remainingDuration = 0;
    std::uint64_t percentageComplete = 0;
    std::uint64_t percentageWorkComplete = 0;
    std::vector<std::shared_ptr<MPPTaskBaseline>> baselines; ///< baselines 1 to 10 after preprocessing
    std::vector<std::string> customFieldValues; ///< by position: index 0 is text field 1; an empty string is unset
    CalendarReference calendar;
    std::int32_t constraintType = 0; ///< MSPDI constraint type number
    double cost = 0;
    double fixedCost = 0;
    double actualCost = 0;
    double remainingCost = 0;
    std::shared_ptr<MPPTaskBaseline> baseline0;   ///< the first baseline, apart from `baselines`
    std::vector<MPPProgressPoint> progressPoints; ///< growth of the percentage; empty if not written
    double sheetPosition = 2.0;                   ///< position in the sheet; the project's row is at 1.0

    std::unique_ptr<MPPTaskSource> source; ///< null in an exact export
    std::unique_ptr<MPPTaskSlack> slack;   ///< null where it is not calculated; the task counts as critical then

    /// Custom fields from the mapping; post-processing turns them into `customFieldValues`.
    std::vector<std::shared_ptr<const MPPExtendedAttribute>> extendedAttributes;

    [[nodiscard]] const Guid& GUID() const noexcept { return _GUID; }
    void setGUID(const Guid& guid) noexcept { _GUID = guid; }
    /// `parent`'s ID; 0xFFFFFFFF without one.
    [[nodiscard]] std::uint32_t parentTaskID() const;
    /// `calendar`'s ID; 0xFFFFFFFF without one.
    [[nodiscard]] std::uint32_t calendarID() const;

    [[nodiscard]] std::optional<Date> getEarlyStart() const { return startDate; }
    [[nodiscard]] std::optional<Date> getLateStart() const { return slack ? slack->lateStart : startDate; }
    [[nodiscard]] std::optional<Date> getEarlyFinish() const { return endDate; }
    [[nodiscard]] std::optional<Date> getLateFinish() const { return slack ? slack->lateFinish : endDate; }
    [[nodiscard]] std::optional<Date> getActualStart() const { return std::nullopt; }
    [[nodiscard]] std::optional<Date> getActualFinish() const { return actualFinish; }
    [[nodiscard]] std::optional<Date> getBaselineStart() const { return std::nullopt; }
    [[nodiscard]] std::optional<Date> getBaselineFinish() const { return std::nullopt; }
    [[nodiscard]] std::optional<Date> getPreleveledStart() const { return std::nullopt; }
    [[nodiscard]] std::optional<Date> getPreleveledFinish() const { return std::nullopt; }
    [[nodiscard]] std::optional<Date> getDeadline() const { return deadline; }
    [[nodiscard]] std::optional<Date> getStop() const { return std::nullopt; }
    [[nodiscard]] std::optional<Date> getResume() const { return std::nullopt; }
    [[nodiscard]] std::optional<Date> getSummaryProgress() const { return std::nullopt; }
    [[nodiscard]] double getFreeSlack() const { return slack ? slack->free : 0.0; }
    [[nodiscard]] double getStartSlack() const { return slack ? slack->start : 0.0; }
    [[nodiscard]] double getFinishSlack() const { return slack ? slack->finish : 0.0; }
    [[nodiscard]] bool isCritical() const { return !slack || slack->isCritical; }
    [[nodiscard]] double getBaselineDuration() const { return 0.0; }
    [[nodiscard]] double getLevelingDelay() const { return 0.0; }
    [[nodiscard]] double getBaselineWork() const { return 0.0; }
    [[nodiscard]] std::uint64_t getPercentageComplete() const { return 0; }
    [[nodiscard]] std::uint64_t getPercentageWorkComplete() const { return 0; }
    [[nodiscard]] std::uint16_t getFixedCostAccrual() const { return 3; }
    [[nodiscard]] bool getRecurring() const { return false; }
    [[nodiscard]] bool getMarked() const { return false; }
    [[nodiscard]] virtual bool getSplits() const { return isSplit; }
    [[nodiscard]] bool getRollup() const { return false; }
    [[nodiscard]] bool getHideBar() const { return false; }
    [[nodiscard]] virtual bool getEffortDriven() const { return effortDriven; }
    [[nodiscard]] bool getExpanded() const { return true; }
    [[nodiscard]] bool getLevelAssignments() const { return true; }

    [[nodiscard]] virtual std::string description() const;

protected:
    [[nodiscard]] std::string descriptionAs(const char* className) const;

private:
    Guid _GUID;
};

} // namespace brackwater
