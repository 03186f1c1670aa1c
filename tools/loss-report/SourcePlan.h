#pragma once

#include "Platform/Xml/XMLDocument.h"

#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace brackwater::lossreport {

// The planner's document, element by element. Texts are views into the documents, which the plan owns.

/// A date-time as written; nothing if the element is absent.
using SourceDate = std::optional<std::string_view>;

/// A paragraph of a note, and whether it has anything besides its text.
struct SourceNote {
    std::vector<std::string> paragraphs;
    bool hasMarkup = false;
};

/// Keys and values of custom fields, in order.
using SourceFields = std::vector<std::pair<std::string_view, std::string_view>>;

struct SourceLink {
    std::optional<std::string_view> predecessor;
    std::string_view kind; ///< "FS", "SS", "FF", "SF" or anything
    bool isExternal = false, isResourceDependency = false, isPercentage = false;
    double lead = 0; ///< seconds, or a fraction
};

struct SourceAssignment {
    std::string_view resource;
    double units = 1;
};

enum class SourceTaskType { Task, Milestone, Group, Hammock };

struct SourceTask {
    std::string_view id, title;
    SourceTaskType type = SourceTaskType::Task;
    SourceDate start, end, leveledStart, lockedStart, lockedEnd, startBound, endBound;
    SourceDate startNoEarlier, endNoEarlier, startNoLater, endNoLater;
    double duration = 0, effort = 0, effortDone = 0, completion = 0; ///< seconds, a fraction
    bool hasEffort = false;
    std::int64_t priority = 0;
    std::string_view scheduleType, recalculate;
    std::optional<double> staticCost;
    bool splittable = true, isSplit = false;
    std::optional<SourceNote> note;
    SourceFields fields;
    std::vector<SourceLink> links;
    std::vector<SourceAssignment> assignments;
    std::vector<std::string_view> children; ///< of a group, or the segments of a split task

    [[nodiscard]] bool isGroup() const noexcept { return type == SourceTaskType::Group; }
    /// The finished share, from 0 to 1: of the effort if it is known, otherwise as stated.
    [[nodiscard]] double progress() const noexcept {
        return effort > 0 && effortDone > 0 ? effortDone / effort : completion;
    }
};

/// A span of a day, in seconds since midnight.
struct SourceSpan {
    std::int64_t start = 0, end = 0;
    friend bool operator==(const SourceSpan&, const SourceSpan&) = default;
};
using SourceSpans = std::vector<SourceSpan>;

/// From one moment to another, or a whole day with its working spans.
struct SourceEvent {
    std::string_view start, end;
};

/// A named group of exceptions.
struct SourceExceptions {
    std::string_view name;
    bool overtime = false;
    std::vector<SourceEvent> events;
};

struct SourceDay {
    std::string_view date;
    SourceSpans spans;
};

struct SourceSchedule {
    /// Sunday first; absent: inherited from the parent.
    std::array<std::optional<SourceSpans>, 7> week;
    std::vector<SourceExceptions> calendars;
    std::vector<SourceDay> days; ///< dated ones, which replace `calendars`
};

struct SourceResource {
    std::string_view id, type, name, email;
    std::optional<double> units, efficiency, costPerUse;
    std::optional<double> costPerHour;
    std::optional<SourceNote> note;
    SourceFields fields;
    std::optional<SourceSchedule> schedule;
    std::vector<std::string_view> children;

    [[nodiscard]] bool isGroup() const noexcept { return type == "Group"; }
    [[nodiscard]] bool isMaterial() const noexcept { return type == "Material"; }
    /// Whether project files have rows for this kind.
    [[nodiscard]] bool isWorker() const noexcept { return type == "Staff" || type == "Equipment" || isMaterial(); }
};

/// A scenario document.
struct SourceScenario {
    std::unique_ptr<XMLDocument> document;
    std::deque<std::string> texts; ///< texts that are not contiguous in the document
    bool fixedEnd = false;
    SourceDate start, end;
    std::string_view topResource, topTask;
    std::vector<SourceTask> tasks;
    std::vector<SourceResource> resources;
    std::unordered_map<std::string_view, std::size_t> taskPlaces, resourcePlaces;

    [[nodiscard]] const SourceTask* task(std::string_view id) const {
        const auto found = taskPlaces.find(id);
        return found == taskPlaces.end() ? nullptr : &tasks[found->second];
    }
    [[nodiscard]] const SourceResource* resource(std::string_view id) const {
        const auto found = resourcePlaces.find(id);
        return found == resourcePlaces.end() ? nullptr : &resources[found->second];
    }
};

/// A bundle: its table of contents and the scenarios of its front window.
struct SourcePlan {
    std::optional<std::string> title, currencyFormat;
    SourceScenario main;
    std::optional<SourceScenario> baseline;
    std::string mainName, baselineName;
    std::vector<std::string> otherScenarios; ///< names of the scenarios that are not in the front window
};

/// Reads a bundle. Throws std::runtime_error with a sentence for the user if it is not one.
[[nodiscard]] SourcePlan readPlan(const std::string& bundlePath);

} // namespace brackwater::lossreport
