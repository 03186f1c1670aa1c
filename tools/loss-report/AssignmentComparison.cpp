#include "loss-report/EffortShares.h"
#include "loss-report/TaskParts.h"

#include <fmt/format.h>

#include <algorithm>

namespace brackwater::lossreport {

namespace {

constexpr double kWorkOfPiece = 60'000; ///< a unit of material is stored as an hour of work
constexpr double kWholeUnits = 10'000;
constexpr double kSecondsOfWork = 60.0 / 1000;

/// Compares the assignments of one task.
class AssignmentComparison {
public:
    AssignmentComparison(Comparison& comparison, const TaskPair& pair)
        : _comparison(comparison), _task(*pair.source), _file(*pair.file), _shares(_task, comparison.plan.main),
          _rows(comparison.match.assignmentsOf(pair.file->uniqueId)) {
        if (comparison.plan.baseline)
            _baselineTask = comparison.plan.baseline->task(_task.id);
        if (_baselineTask == nullptr)
            return;
        _baselineShares.emplace(*_baselineTask, *comparison.plan.baseline);
        for (const SourceAssignment& assignment : _baselineTask->assignments)
            if (_baselineShares->of(assignment))
                _baselineAssignments.emplace(assignment.resource, &assignment);
    }

    void run() {
        for (const SourceAssignment& assignment : _task.assignments)
            compare(assignment);
        if (_task.assignments.empty() && !_task.isGroup())
            comparePlaceholder();
        compareTaskCost();
    }

private:
    // A piece of unassigned work of the task.
    void comparePlaceholder() {
        if (_rows.empty())
            return _comparison.add(subjectOf(_task), Kind::Unexplained, "unassigned work", hoursText(_task.effort), "");
        // If the source has no effort, real files have the duration.
        const double work = _rows.front()->work;
        if (_task.effort > 0 || !isSameWork(workOfSeconds(_task.duration), work))
            _comparison.work(subjectOf(_task), "unassigned work", _task.effort, work);
    }

    void compare(const SourceAssignment& source) {
        const ResourcePair* resource = _comparison.match.resource(source.resource);
        if (resource == nullptr)
            return;
        const Subject subject{"assignment", _task.id, resource->source->name};
        const inspect::Assignment* row = resource->file == nullptr ? nullptr : takeRow(resource->file->uniqueId);
        if (row == nullptr)
            return _comparison.add(subject, Kind::Unexplained, "assignment", inspect::numberText(source.units), "");
        _comparison.date(subject, "start", _task.start, row->start);
        _comparison.date(subject, "finish", _task.end, row->finish);
        const auto effort = _shares.nearest(source, row->work * kSecondsOfWork);
        if (effort)
            compareWork(subject, source, *effort, *row);
        else
            compareQuantity(subject, source, *row);
        compareCost(subject, source, effort, *resource->source, *row);
        compareBaseline(subject, source, *row);
    }

    /// The rows of a task are mostly in document order.
    const inspect::Assignment* takeRow(std::uint32_t resource) {
        const auto isRight = [resource](const inspect::Assignment* row) { return row->resourceId == resource; };
        if (_next < _rows.size() && isRight(_rows[_next]))
            return _rows[_next++];
        const auto found = std::ranges::find_if(_rows, isRight);
        return found == _rows.end() ? nullptr : *found;
    }

    void compareWork(const Subject& subject, const SourceAssignment& source, double effort,
                     const inspect::Assignment& row) {
        _comparison.number(subject, "units", source.units, row.units, kWholeUnits);
        _comparison.work(subject, "work", effort, row.work);
        const double done = _task.progress();
        // Relative to the work in the file, whose own differences are already reported.
        if (!isSameWork(row.work * done, row.actualWork))
            _comparison.add(subject, Kind::Progress, "work done", hoursText(effort * done),
                            hoursOfWork(row.actualWork));
        if (!isSameWork(row.work * (1 - done), row.remainingWork))
            _comparison.work(subject, "remaining work", effort * (1 - done), row.remainingWork, Kind::Progress);
    }

    void compareQuantity(const Subject& subject, const SourceAssignment& source, const inspect::Assignment& row) {
        _comparison.number(subject, "quantity", source.units, row.units, kWholeUnits, Kind::MaterialQuantity);
        _comparison.number(subject, "quantity as work", source.units, row.work, kWorkOfPiece, Kind::MaterialQuantity);
    }

    // The cost per hour or unit, and per use of a resource, times its units or once.
    void compareCost(const Subject& subject, const SourceAssignment& source, const std::optional<double>& effort,
                     const SourceResource& resource, const inspect::Assignment& row) {
        const double cost = resource.costPerHour.value_or(0) * (effort ? *effort / 3600 : source.units);
        const double use = resource.costPerUse.value_or(0);
        if (!isSameNumber((cost + use) * 100, row.cost))
            _comparison.number(subject, "cost", cost + use * source.units, row.cost, 100, Kind::CostOfWork);
    }

    void compareTaskCost() {
        double cost = _file.fixedCost;
        for (const inspect::Assignment* row : _rows)
            cost += row->cost;
        if (!_task.isGroup())
            _comparison.number(subjectOf(_task), "whole cost", cost / 100, _file.cost, 100, Kind::CostOfWork);
    }

    // A resource assigned twice has one baseline on the task; material has none.
    void compareBaseline(const Subject& subject, const SourceAssignment& source, const inspect::Assignment& row) {
        const auto [first, end] = _baselineAssignments.equal_range(source.resource);
        if (first == end)
            return;
        const auto found = row.baselines.find(0);
        const double inFile = found == row.baselines.end() ? 0 : found->second.work.value_or(0);
        double effort = 0;
        for (auto one = first; one != end; ++one)
            effort += std::next(first) == end ? *_baselineShares->nearest(*one->second, inFile * kSecondsOfWork)
                                              : *_baselineShares->of(*one->second);
        _baselineAssignments.erase(first, end);
        _comparison.baselineEfforts[source.resource] += effort;
        if (found == row.baselines.end())
            return _comparison.add(subject, Kind::BaselineAssignment, "baseline", hoursText(effort), "");
        const inspect::Baseline& baseline = found->second;
        _comparison.date(subject, "baseline start", _baselineTask->start, baseline.start, Kind::BaselineAssignment);
        _comparison.date(subject, "baseline finish", _baselineTask->end, baseline.finish, Kind::BaselineAssignment);
        _comparison.work(subject, "baseline work", effort, inFile, Kind::BaselineAssignment);
    }

    Comparison& _comparison;
    const SourceTask& _task;
    const inspect::Task& _file;
    EffortShares _shares;
    std::span<const inspect::Assignment* const> _rows;
    std::size_t _next = 0;
    const SourceTask* _baselineTask = nullptr;
    std::optional<EffortShares> _baselineShares;
    std::unordered_multimap<std::string_view, const SourceAssignment*> _baselineAssignments; ///< not yet compared
};

} // namespace

void compareAssignments(Comparison& comparison, const TaskPair& pair) { AssignmentComparison(comparison, pair).run(); }

} // namespace brackwater::lossreport
