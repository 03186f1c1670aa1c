#pragma once

#include "MPPXMLDOMFilter/Model/MPPAssignment.h"
#include "MPPXMLDOMFilter/Model/MPPBookkeeping.h"
#include "MPPXMLDOMFilter/Model/MPPCalendar.h"
#include "MPPXMLDOMFilter/Model/MPPConstraint.h"
#include "MPPXMLDOMFilter/Model/MPPResource.h"
#include "MPPXMLDOMFilter/Model/MPPSummaryInformation.h"
#include "MPPXMLDOMFilter/Model/MPPTask.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace brackwater {

/// The project, which is itself the summary task with ID 0. It owns all records through its lists.
struct MPPProject : MPPTask {
    MPPProject();

    std::vector<std::shared_ptr<MPPTask>> tasks; ///< all tasks except the project
    MPPTask* topTask = nullptr; ///< the single top task that the project replaces in preprocessing; not owned
    std::vector<std::shared_ptr<MPPResource>> resources;
    std::vector<std::shared_ptr<MPPAssignment>> assignments;
    std::vector<std::shared_ptr<MPPCalendar>> baseCalendars;
    std::vector<std::shared_ptr<MPPConstraint>> constraints;
    std::vector<std::string> customTaskFieldNames;     ///< aliases of task text fields, by position
    std::vector<std::string> customResourceFieldNames; ///< aliases of resource text fields, by position
    std::size_t customFieldNameRoom = 104;             ///< minimum bytes per alias
    bool rowIsATasks = false; ///< the project's row has notes, texts and baselines like a task's, and no calendar
    std::shared_ptr<MPPCalendar> standardCalendar;
    std::uint64_t currencyDigits = 2;
    std::int32_t currencySymbolPosition = 0;
    std::optional<std::string> currencySymbol = "$";
    std::optional<std::string> currencyCode = "USD";
    std::int32_t durationFormat = 7;
    std::int32_t weekStartDay = 1;
    std::uint64_t daysPerMonth = 20;
    std::uint64_t minutesPerWeek = 2400;
    std::uint64_t minutesPerDay = 480;
    bool scheduleFromStart = true;
    std::int32_t workFormat = 2;
    bool honorConstraints = true;
    std::shared_ptr<MPPSummaryInformation> summaryInfo;
    std::optional<Date> baseline0SaveDate;
    std::vector<std::optional<Date>> baselineSaveDates; ///< save dates of baselines 1 to 10

    /// Null in an exact export, whose files keep the template's counts. Filled in during writing.
    std::unique_ptr<MPPBookkeeping> bookkeeping;
    /// Whether the file keeps the template's views, tables and entry lists instead of a minimum of one of each.
    bool keepsTemplateViews = false;

    /// The definitions of all custom fields, of tasks and resources, from the mapping; post-processing turns them into
    /// the two lists of names.
    std::vector<std::shared_ptr<const MPPExtendedAttribute>> extendedAttributes;

    /// The record of work without a resource; its GUID is the same in every file.
    [[nodiscard]] const std::shared_ptr<MPPResource>& defaultResource() const noexcept { return _defaultResource; }

    /// Both are built from `assignments` on first use and cached: use them only after all assignments are attached and
    /// numbered.
    [[nodiscard]] const std::unordered_set<std::uint32_t>& assignmentIDsSet() const;
    [[nodiscard]] const std::unordered_map<std::uint32_t, MPPAssignment*>& idToAssignmentMap() const;

    /// Keeps a record removed from a list alive, since others may still point to it.
    void keepRemovedRecord(std::shared_ptr<const void> record) { _removedRecords.push_back(std::move(record)); }

    [[nodiscard]] bool getSplits() const override { return true; }
    [[nodiscard]] bool getEffortDriven() const override { return false; }
    [[nodiscard]] std::string description() const override;

private:
    std::shared_ptr<MPPResource> _defaultResource;
    std::vector<std::shared_ptr<const void>> _removedRecords;
    mutable std::optional<std::unordered_set<std::uint32_t>> _assignmentIDsSet;
    mutable std::optional<std::unordered_map<std::uint32_t, MPPAssignment*>> _idToAssignmentMap;
};

} // namespace brackwater
