#include "loss-report/EffortShares.h"
#include "loss-report/TaskParts.h"

namespace brackwater::lossreport {

namespace {

/// Compares a task with the baseline document.
class BaselineComparison {
public:
    BaselineComparison(Comparison& comparison, const SourceTask& source, const inspect::Task& file)
        : _comparison(comparison), _source(source), _file(file), _subject{"baseline", source.id, source.title} {
        if (const auto found = file.baselines.find(0); found != file.baselines.end())
            _baseline = found->second;
    }

    void run() {
        if (_source.start) {
            _comparison.date(_subject, "start", _source.start, _baseline.start);
            _comparison.date(_subject, "finish", _source.end, _baseline.finish);
        }
        _comparison.duration(_subject, "duration", _source.duration, _baseline.duration.value_or(inspect::Duration{}));
        if (_source.hasEffort)
            compareWork();
        if (_source.staticCost)
            compareCost();
    }

private:
    void compareWork() {
        const double inFile = _baseline.work.value_or(0);
        constexpr double workOfHour = 60'000;
        Kind kind = _source.isGroup() ? Kind::Summary : Kind::Unexplained;
        if (isSameWork(_source.effort * workOfHour, inFile))
            kind = Kind::BaselineWork; // seconds written as hours
        else if (EffortShares(_source, *_comparison.plan.baseline).hasBothKinds())
            kind = Kind::BothKindsOfWork;
        _comparison.work(_subject, "work", _source.effort, inFile, kind);
    }

    // The file has the total cost, including that of the work, and usually the fixed part as well.
    void compareCost() {
        const double whole = _baseline.cost.value_or(0), work = costOfWork();
        _comparison.number(_subject, "cost", *_source.staticCost, _baseline.fixedCost.value_or(whole - work), 100,
                           Kind::BaselineCost);
        if (_baseline.fixedCost.value_or(0) > 0 && !_source.isGroup())
            _comparison.number(_subject, "whole cost", *_source.staticCost + work / 100, whole, 100,
                               Kind::BaselineCost);
    }

    [[nodiscard]] double costOfWork() const {
        double cost = 0;
        for (const inspect::Assignment* assignment : _comparison.match.assignmentsOf(_file.uniqueId))
            if (const auto found = assignment->baselines.find(0); found != assignment->baselines.end())
                cost += found->second.cost.value_or(0);
        return cost;
    }

    Comparison& _comparison;
    const SourceTask& _source;
    const inspect::Task& _file;
    Subject _subject;
    inspect::Baseline _baseline;
};

} // namespace

void compareTaskBaseline(Comparison& comparison, const TaskPair& pair) {
    const SourceTask* source = comparison.plan.baseline ? comparison.plan.baseline->task(pair.source->id) : nullptr;
    if (source != nullptr)
        BaselineComparison(comparison, *source, *pair.file).run();
}

} // namespace brackwater::lossreport
