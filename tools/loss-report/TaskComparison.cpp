#include "loss-report/Comparison.h"
#include "loss-report/TaskParts.h"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_set>

namespace brackwater::lossreport {

namespace {

constexpr std::int64_t kMostPriority = 1000;

/// The range of a document's priorities, which always includes 0.
struct PriorityRange {
    std::int64_t least = 0, most = 0;

    [[nodiscard]] bool isSingle() const noexcept { return least == most; }
    [[nodiscard]] bool isNatural() const noexcept { return least == 0 && most == kMostPriority; }
    [[nodiscard]] double inFile(std::int64_t priority) const noexcept {
        return static_cast<double>(priority - least) * kMostPriority / static_cast<double>(most - least);
    }
};

PriorityRange rangeOf(const SourceScenario& scenario) {
    PriorityRange range;
    for (const SourceTask& task : scenario.tasks) {
        range.least = std::min(range.least, task.priority);
        range.most = std::max(range.most, task.priority);
    }
    return range;
}

/// Compares the tasks one by one.
class TaskComparison {
public:
    explicit TaskComparison(Comparison& comparison)
        : _comparison(comparison), _priorities(rangeOf(comparison.plan.main)) {}

    void run() {
        if (!_priorities.isSingle() && !_priorities.isNatural())
            _comparison.add({"project", "", ""}, Kind::PriorityScale, "priorities",
                            fmt::format("{} to {}", _priorities.least, _priorities.most), "0 to 1000");
        for (const TaskPair& pair : _comparison.match.tasks())
            compare(pair);
        tellOfUnreached();
    }

private:
    void compare(const TaskPair& pair) {
        const Subject subject = subjectOf(*pair.source);
        if (pair.file == nullptr)
            return _comparison.add(subject, Kind::Unexplained, "task", std::string(pair.source->title), "");
        // The project's own row has its dates, its duration and what depends on them.
        compareTimes(subject, pair);
        if (pair.isTop && !_comparison.match.hasTopTaskRow()) {
            compareAbsorbedTask(_comparison, pair);
        } else {
            compareData(subject, pair);
            compareConstraint(_comparison, pair);
            compareProgress(_comparison, pair);
            compareTaskBaseline(_comparison, pair);
        }
        compareAssignments(_comparison, pair);
        compareSegments(_comparison, pair);
        compareLinks(_comparison, pair);
    }

    void compareTimes(const Subject& subject, const TaskPair& pair) {
        _comparison.date(subject, "start", pair.source->start, pair.file->start);
        _comparison.date(subject, "finish", pair.source->end, pair.file->finish);
        _comparison.duration(subject, "duration", durationWithoutPauses(_comparison, pair), pair.file->duration);
    }

    void compareData(const Subject& subject, const TaskPair& pair) {
        const SourceTask& source = *pair.source;
        const inspect::Task& file = *pair.file;
        _comparison.text(subject, "title", source.title, file.title);
        _comparison.note(subject, source.note, file.notes);
        _comparison.fields(subject, source.fields, file.texts, _comparison.file.taskTextNames);
        _comparison.number(subject, "cost", source.staticCost.value_or(0), file.fixedCost, 100);
        compareType(subject, source, file);
        comparePriority(subject, source, file);
    }

    void compareType(const Subject& subject, const SourceTask& source, const inspect::Task& file) {
        const bool isMilestone = source.type == SourceTaskType::Milestone;
        if (isMilestone != file.milestone)
            _comparison.add(subject, Kind::Unexplained, "type", isMilestone ? "milestone" : "no milestone",
                            file.milestone ? "milestone" : "no milestone");
        if (source.type == SourceTaskType::Hammock)
            _comparison.add(subject, Kind::Hammock, "type", "hammock", "task");
        if (file.ignoresResourceCalendars)
            _comparison.add(subject, Kind::IgnoredCalendar, "calendars of its resources", "heeded", "ignored");
        compareRecalculation(subject, source, file);
    }

    // A group is neither: its values follow from its tasks.
    void compareRecalculation(const Subject& subject, const SourceTask& source, const inspect::Task& file) {
        const std::string_view rule = source.recalculate.empty() ? "duration" : source.recalculate;
        if (rule == "something_else")
            _comparison.add(subject, Kind::Recalculate, "recalculate", std::string(rule),
                            inspect::taskTypeText(file.type));
        if (source.isGroup())
            return;
        constexpr std::uint16_t fixedUnits = 0, fixedDuration = 1, fixedWork = 2;
        const std::uint16_t type = rule == "effort" ? fixedDuration : rule == "units" ? fixedWork : fixedUnits;
        if (rule != "something_else" && file.type != type)
            _comparison.add(subject, Kind::Unexplained, "recalculate", std::string(rule),
                            inspect::taskTypeText(file.type));
        const bool isEffortDriven = source.type == SourceTaskType::Task && rule != "effort" && rule != "something_else";
        if (isEffortDriven != file.effortDriven)
            _comparison.add(subject, file.effortDriven ? Kind::EffortDriven : Kind::Unexplained, "effort driven",
                            isEffortDriven ? "yes" : "no", file.effortDriven ? "yes" : "no");
    }

    void comparePriority(const Subject& subject, const SourceTask& source, const inspect::Task& file) {
        if (_priorities.isSingle())
            return;
        const double expected = _priorities.inFile(source.priority);
        if (file.priority > expected || file.priority + 1 <= expected)
            _comparison.add(subject, Kind::Unexplained, "priority", fmt::format("{}", source.priority),
                            fmt::format("{}", file.priority));
    }

    void tellOfUnreached() {
        std::unordered_set<std::string_view> segments;
        for (const TaskPair& pair : _comparison.match.tasks())
            if (pair.source->isSplit)
                segments.insert(pair.source->children.begin(), pair.source->children.end());
        for (const SourceTask& task : _comparison.plan.main.tasks)
            if (_comparison.match.task(task.id) == nullptr && !segments.contains(task.id))
                _comparison.add(subjectOf(task), Kind::Unreached, "task", std::string(task.title), "");
        if (_comparison.plan.baseline)
            for (const SourceTask& task : _comparison.plan.baseline->tasks)
                if (_comparison.plan.main.task(task.id) == nullptr)
                    _comparison.add({"baseline", task.id, task.title}, Kind::BaselineOnly, "task",
                                    std::string(task.title), "");
    }

    Comparison& _comparison;
    PriorityRange _priorities;
};

} // namespace

Subject subjectOf(const SourceTask& task) { return {"task", task.id, task.title}; }

void compareTasks(Comparison& comparison) { TaskComparison(comparison).run(); }

} // namespace brackwater::lossreport
