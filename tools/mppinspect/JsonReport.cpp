#include "JsonReport.h"

#include "JsonWriter.h"

#include <fmt/format.h>

#include <algorithm>
#include <concepts>
#include <unordered_map>

namespace brackwater::inspect {

namespace {

/// Grows when a key is taken away or changes its meaning; new keys leave it.
constexpr int kVersion = 2;

constexpr std::array kWeekdays{"sunday", "monday", "tuesday", "wednesday", "thursday", "friday", "saturday"};

double hoursOf(double thousandthsOfMinutes) { return thousandthsOfMinutes / 60'000; }
double wholeOf(double hundredths) { return hundredths / 100; }
std::optional<double> hoursOf(const std::optional<double>& work) {
    return work ? std::optional(hoursOf(*work)) : std::nullopt;
}
std::optional<double> wholeOf(const std::optional<double>& hundredths) {
    return hundredths ? std::optional(wholeOf(*hundredths)) : std::nullopt;
}

/// Writes the parts of a file, each with its keys.
class JsonReport {
public:
    explicit JsonReport(const Sink& sink) : _json(sink) {}

    void write(const ProjectFile& project, std::span<const Section> sections) {
        _json.beginObject();
        add("version", kVersion);
        for (const Section section : kAllSections)
            if (std::ranges::find(sections, section) != sections.end())
                addSection(project, section);
        _json.endObject();
        _json.finish();
    }

    void write(const Findings& findings) {
        _json.beginObject();
        add("version", kVersion);
        _json.key("findings");
        _json.beginArray();
        addFindings("error", findings.errors);
        addFindings("warning", findings.warnings);
        addFindings("note", findings.notes);
        _json.endArray();
        _json.endObject();
        _json.finish();
    }

private:
    using Predecessors = std::unordered_map<std::uint32_t, std::vector<const Link*>>;

    static Predecessors predecessorsOf(const ProjectFile& project) {
        Predecessors predecessors;
        for (const Link& link : project.links)
            predecessors[link.successor].push_back(&link);
        return predecessors;
    }

    // Values.

    void add(std::string_view key, std::string_view text) {
        _json.key(key);
        _json.text(text);
    }
    void add(std::string_view key, const std::string& text) { add(key, std::string_view(text)); }
    void add(std::string_view key, const char* text) { add(key, std::string_view(text)); }
    void add(std::string_view key, double number) {
        _json.key(key);
        _json.number(number);
    }
    template <std::integral Number>
    void add(std::string_view key, Number number) {
        _json.key(key);
        if constexpr (std::same_as<Number, bool>)
            _json.boolean(number);
        else
            _json.number(static_cast<std::int64_t>(number));
    }
    void add(std::string_view key, const Date& date) { add(key, isoText(date)); }
    void add(std::string_view key, const Guid& guid) { add(key, textOf(guid)); }
    void add(std::string_view key, const Duration& duration) {
        const bool percentage = isPercentage(duration);
        addObject(key, [&] {
            add("minutes", percentage ? std::nullopt : std::optional(duration.tenths / 10.0));
            add("percent", percentage ? std::optional(duration.tenths) : std::nullopt);
            add("unit", unitText(duration));
            add("estimated", isEstimated(duration));
        });
    }
    template <typename Value>
    void add(std::string_view key, const std::optional<Value>& value) {
        if (value)
            return add(key, *value);
        _json.key(key);
        _json.null();
    }

    // Collections.

    template <typename Content>
    void addObject(std::string_view key, const Content& content) {
        _json.key(key);
        _json.beginObject();
        content();
        _json.endObject();
    }
    template <typename Elements, typename Content>
    void addArray(std::string_view key, const Elements& elements, Content content) {
        _json.key(key);
        _json.beginArray();
        for (const auto& element : elements)
            content(element);
        _json.endArray();
    }
    template <typename Records, typename Content>
    void addList(std::string_view key, const Records& records, const Content& content) {
        addArray(key, records, [&](const auto& record) {
            _json.beginObject();
            content(record);
            _json.endObject();
        });
    }

    // Parts of the file.

    void addSection(const ProjectFile& project, Section section) {
        switch (section) {
        case Section::Summary:
            return addCounts(project);
        case Section::Entries:
            return addEntries(project);
        case Section::Properties:
            return addProperties(project);
        case Section::Tasks:
            return addTasks(project);
        case Section::Resources:
            addTexts("resourceTextNames", project.resourceTextNames);
            return addList("resources", project.resources, [this](const Resource& record) { addResource(record); });
        case Section::Assignments:
            return addList("assignments", project.assignments,
                           [this](const Assignment& record) { addAssignment(record); });
        case Section::Links:
            return addList("links", project.links, [this](const Link& record) { addLink(record); });
        case Section::Calendars:
            return addList("calendars", project.calendars, [this](const Calendar& record) { addCalendar(record); });
        case Section::Complaints:
            return addList("complaints", project.complaints.groups(),
                           [this](const Complaints::Group& group) { addGroup(group); });
        }
    }

    void addCounts(const ProjectFile& project) {
        addArray("document", project.compObj, [this](const std::string& text) { _json.text(text); });
        add("folder", project.folder);
        addObject("counts", [&] {
            add("entries", project.entries.size());
            add("properties", project.properties.size());
            add("tasks", project.tasks.size());
            add("milestones", std::ranges::count(project.tasks, true, &Task::milestone));
            add("resources", project.resources.size());
            add("assignments", project.assignments.size());
            add("links", project.links.size());
            add("calendars", project.calendars.size());
            add("complaints", project.complaints.groups().size());
        });
    }

    void addEntries(const ProjectFile& project) {
        addList("entries", project.entries, [this](const EntryInfo& entry) {
            add("path", entry.path);
            add("storage", entry.isStorage);
            add("bytes", entry.size);
        });
    }

    void addProperties(const ProjectFile& project) {
        const auto addSummary = [this](const SummaryValue& value) {
            add("id", value.id);
            add("value", value.text);
        };
        addList("summary", project.summary, addSummary);
        addList("documentSummary", project.documentSummary, addSummary);
        addList("properties", project.properties, [this](const ProjectProperty& property) {
            add("type", fmt::format("0x{:08X}", property.type));
            add("name", property.name);
            add("value", property.value);
        });
        addObject("workingUnits", [&] {
            add("minutesPerDay", project.units.minutesPerDay);
            add("minutesPerWeek", project.units.minutesPerWeek);
            add("daysPerMonth", project.units.daysPerMonth);
        });
    }

    void addTasks(const ProjectFile& project) {
        addTexts("taskTextNames", project.taskTextNames);
        add("blankTaskRows", project.blankTaskRows);
        const Predecessors predecessors = predecessorsOf(project);
        addList("tasks", project.tasks, [&](const Task& task) { addTask(task, predecessors); });
    }

    void addGroup(const Complaints::Group& group) {
        add("where", group.where);
        add("what", group.what);
        addArray("places", group.places, [this](const std::string& place) { _json.text(place); });
        add("count", group.count);
    }

    void addFindings(const char* severity, const Complaints& findings) {
        for (const Complaints::Group& group : findings.groups()) {
            _json.beginObject();
            add("severity", severity);
            addGroup(group);
            _json.endObject();
        }
    }

    void addTexts(std::string_view key, const std::map<std::size_t, std::string>& texts) {
        addObject(key, [&] {
            for (const auto& [position, text] : texts)
                add(fmt::format("Text{}", position), text);
        });
    }

    void addBaselines(const std::map<std::size_t, Baseline>& baselines) {
        addList("baselines", baselines, [this](const auto& numbered) {
            const auto& [number, baseline] = numbered;
            add("number", number);
            add("start", baseline.start);
            add("finish", baseline.finish);
            add("duration", baseline.duration);
            add("work", hoursOf(baseline.work));
            add("cost", wholeOf(baseline.cost));
            add("fixedCost", wholeOf(baseline.fixedCost));
        });
    }

    void addPieces(const std::vector<Piece>& pieces) {
        addList("pieces", pieces, [this](const Piece& piece) {
            add("start", piece.start);
            add("finish", piece.finish);
        });
    }

    void addPhases(std::string_view key, const std::vector<WorkPhase>& phases) {
        addList(key, phases, [this](const WorkPhase& phase) {
            add("work", hoursOf(phase.work));
            add("minutes", static_cast<double>(phase.tenths) / 10);
            add("units", wholeOf(phase.units));
        });
    }

    void addPredecessors(const Task& task, const Predecessors& predecessors) {
        static const std::vector<const Link*> none;
        const auto found = predecessors.find(task.uniqueId);
        addList("predecessors", found == predecessors.end() ? none : found->second, [this](const Link* link) {
            add("taskId", link->predecessor);
            add("type", linkTypeText(link->type));
            add("lag", link->lag);
        });
    }

    void addTask(const Task& task, const Predecessors& predecessors) {
        add("uniqueId", task.uniqueId);
        add("id", task.id);
        add("guid", task.guid);
        add("parentId", task.parentId);
        add("parentGuid", task.parentGuid);
        add("outlineLevel", task.outlineLevel);
        add("depth", task.depth);
        add("row", task.row);
        add("placeInSheet", task.placeInSheet);
        add("title", task.title);
        addTaskDates(task);
        add("duration", task.duration);
        add("actualDuration", task.actualDuration);
        add("remainingDuration", task.remainingDuration);
        add("type", taskTypeText(task.type));
        add("constraint", constraintText(task.constraintType));
        add("priority", task.priority);
        add("percentComplete", task.percentComplete);
        add("percentWorkComplete", task.percentWorkComplete);
        add("milestone", task.milestone);
        add("summary", task.summary);
        add("effortDriven", task.effortDriven);
        add("ignoresResourceCalendars", task.ignoresResourceCalendars);
        add("calendarId", task.calendarId < 0 ? std::nullopt : std::optional(task.calendarId));
        addEffort(task);
        add("fixedCost", wholeOf(task.fixedCost));
        addBaselines(task.baselines);
        addPieces(task.pieces);
        addPredecessors(task, predecessors);
        addTexts("texts", task.texts);
        add("notes", task.notes);
    }

    void addTaskDates(const Task& task) {
        add("start", task.start);
        add("finish", task.finish);
        add("earlyStart", task.earlyStart);
        add("earlyFinish", task.earlyFinish);
        add("lateStart", task.lateStart);
        add("lateFinish", task.lateFinish);
        add("actualStart", task.actualStart);
        add("actualFinish", task.actualFinish);
        add("constraintDate", task.constraintDate);
        add("deadline", task.deadline);
        add("created", task.created);
        add("stop", task.stop);
        add("resume", task.resume);
    }

    // What tasks, resources and assignments have in common.
    template <typename Record>
    void addEffort(const Record& record) {
        add("work", hoursOf(record.work));
        add("actualWork", hoursOf(record.actualWork));
        add("remainingWork", hoursOf(record.remainingWork));
        add("cost", wholeOf(record.cost));
        add("actualCost", wholeOf(record.actualCost));
        add("remainingCost", wholeOf(record.remainingCost));
    }

    void addResource(const Resource& resource) {
        add("uniqueId", resource.uniqueId);
        add("id", resource.id);
        add("guid", resource.guid);
        add("row", resource.row);
        add("placeInSheet", resource.placeInSheet);
        add("kind", kindText(resource.kind));
        add("name", resource.name);
        add("initials", resource.initials);
        add("group", resource.group);
        add("code", resource.code);
        add("email", resource.email);
        add("materialLabel", resource.materialLabel);
        add("calendarId", resource.calendarId);
        add("availableFrom", resource.availableFrom);
        add("availableTo", resource.availableTo);
        add("maximumUnits", wholeOf(resource.maximumUnits));
        add("standardRate", resource.standardRate);
        add("standardRateUnits", resource.standardRateUnits);
        add("overtimeRate", resource.overtimeRate);
        add("overtimeRateUnits", resource.overtimeRateUnits);
        add("costPerUse", wholeOf(resource.costPerUse));
        add("accrual", resource.accrual);
        addEffort(resource);
        addBaselines(resource.baselines);
        addTexts("texts", resource.texts);
        add("notes", resource.notes);
    }

    void addAssignment(const Assignment& assignment) {
        add("id", assignment.id);
        add("guid", assignment.guid);
        add("row", assignment.row);
        add("taskId", assignment.taskId);
        add("taskGuid", assignment.taskGuid);
        add("resourceId", assignment.resourceId);
        add("resourceGuid", assignment.resourceGuid);
        add("start", assignment.start);
        add("finish", assignment.finish);
        add("stop", assignment.stop);
        add("resume", assignment.resume);
        add("created", assignment.created);
        add("delay", assignment.delay);
        add("units", wholeOf(assignment.units));
        addEffort(assignment);
        add("regularWork", hoursOf(assignment.regularWork));
        add("plannedPhases", assignment.plannedPhases);
        add("completePhases", assignment.completePhases);
        add("contour", contourText(assignment.contour));
        addPhases("completeWork", assignment.complete);
        addPhases("plannedWork", assignment.remaining);
        addPieces(assignment.pieces);
        addBaselines(assignment.baselines);
        add("notes", assignment.notes);
    }

    void addLink(const Link& link) {
        add("id", link.id);
        add("guid", link.guid);
        add("row", link.row);
        add("predecessorId", link.predecessor);
        add("successorId", link.successor);
        add("type", linkTypeText(link.type));
        add("lag", link.lag);
    }

    void addCalendar(const Calendar& calendar) {
        add("id", calendar.id);
        add("guid", calendar.guid);
        add("row", calendar.row);
        add("name", calendar.name);
        add("baseId", calendar.baseId);
        add("resourceId", calendar.resourceId);
        add("ownHours", calendar.hasOwnHours);
        addWeek(calendar.week);
        addList("exceptions", calendar.exceptions, [this](const CalendarException& exception) {
            add("name", exception.name.empty() ? std::nullopt : std::optional(exception.name));
            addDays(exception);
            addRanges("ranges", exception.ranges);
            addRecurrence(exception.recurrence);
        });
        addList("workWeeks", calendar.workWeeks, [this](const WorkWeek& workWeek) {
            add("name", workWeek.name);
            addDays(workWeek);
            addWeek(workWeek.week);
        });
    }

    void addRecurrence(const std::optional<Recurrence>& recurrence) {
        if (!recurrence) {
            _json.key("recurrence");
            return _json.null();
        }
        const auto orNull = [](unsigned number) { return number == 0 ? std::nullopt : std::optional(number); };
        addObject("recurrence", [&] {
            add("kind", kindText(recurrence->kind));
            add("every", recurrence->every);
            add("occurrences", recurrence->occurrences);
            addArray("weekdays", kWeekdays, [&, day = 0U](const char* name) mutable {
                if ((recurrence->weekdays >> day++ & 1) != 0)
                    _json.text(name);
            });
            add("ordinal", orNull(recurrence->ordinal));
            add("day", orNull(recurrence->day));
            add("month", orNull(recurrence->month));
        });
    }

    template <typename Span>
    void addDays(const Span& span) {
        add("firstDay", dayText(span.firstDay));
        add("lastDay", dayText(span.lastDay));
    }

    void addWeek(const Week& week) {
        addObject("week", [&] {
            for (std::size_t day = 0; day < kWeekdays.size(); ++day)
                addRanges(kWeekdays.at(day), week.at(day));
        });
    }

    // Null for an inherited day.
    void addRanges(std::string_view key, const DayRanges& ranges) {
        if (!ranges) {
            _json.key(key);
            return _json.null();
        }
        addList(key, *ranges, [this](const TimeRange& range) {
            add("start", timeText(range.start));
            add("end", timeText(range.end));
        });
    }

    JsonWriter _json;
};

} // namespace

void writeJson(const ProjectFile& project, const Sink& sink, std::span<const Section> sections) {
    JsonReport(sink).write(project, sections);
}

void writeJson(const Findings& findings, const Sink& sink) { JsonReport(sink).write(findings); }

} // namespace brackwater::inspect
