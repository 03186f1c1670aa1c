#include "loss-report/EffortShares.h"
#include "loss-report/TaskParts.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace brackwater::lossreport {

namespace {

std::string percentText(double share) { return inspect::numberText(share * 100) + " %"; }

/// The total work of a task's assignments.
double assignedWork(const Comparison& comparison, const inspect::Task& task) {
    double sum = 0;
    for (const inspect::Assignment* assignment : comparison.match.assignmentsOf(task.uniqueId)) {
        const bool isMaterial = assignment->resourceId && comparison.match.isMaterial(*assignment->resourceId);
        sum += isMaterial ? 0 : assignment->work;
    }
    return sum;
}

/// Compares work and progress of a task that is not a group.
class ProgressComparison {
public:
    ProgressComparison(Comparison& comparison, const TaskPair& pair)
        : _comparison(comparison), _source(*pair.source), _file(*pair.file), _subject(subjectOf(_source)),
          _shares(_source, comparison.plan.main), _progress(_source.progress()),
          _duration(durationWithoutPauses(comparison, pair)) {}

    void run() {
        compareWork();
        compareRest();
        if (_progress > 0)
            compareDone();
        comparePercent();
    }

private:
    void compareWork() {
        const double assigned = assignedWork(_comparison, _file);
        if (_shares.hasBothKinds() && _source.effort > 0) {
            const bool isSameSum = isSameWork(assigned, _file.work);
            if (!isSameSum || !isSameWork(workOfSeconds(_source.effort), assigned))
                _comparison.add(
                    _subject, Kind::BothKindsOfWork, "work", hoursText(_source.effort),
                    fmt::format("{}, {} of its assignments", hoursOfWork(_file.work), hoursOfWork(assigned)));
        } else {
            _comparison.work(_subject, "work", _source.effort, _file.work);
        }
    }

    void compareRest() {
        // Relative to the work in the file, whose own differences are already reported.
        if (!isSameWork(_file.work * (1 - _progress), _file.remainingWork))
            _comparison.add(_subject, Kind::Progress, "remaining work", hoursText(_source.effort * (1 - _progress)),
                            hoursOfWork(_file.remainingWork));
        const double rest = _duration * (1 - _progress), inFile = 6.0 * _file.remainingDuration.tenths;
        if (std::abs(rest - inFile) > 6)
            _comparison.add(_subject, Kind::Progress, "remaining duration", hoursText(rest), hoursText(inFile));
    }

    void compareDone() {
        if (!hasWorkDone())
            _comparison.add(_subject, Kind::Progress, "work done", hoursText(_source.effort * _progress),
                            hoursOfWork(_file.actualWork));
        if (!hasDurationDone())
            _comparison.add(_subject, Kind::Progress, "duration done", hoursText(_duration * _progress),
                            hoursText(6.0 * _file.actualDuration.tenths));
        if (!_file.actualStart)
            _comparison.add(_subject, Kind::Progress, "actual start", textOf(_comparison.wallTime(_source.start)),
                            "none");
        if (_progress >= 1 && !_file.actualFinish)
            _comparison.add(_subject, Kind::Progress, "actual finish", textOf(_comparison.wallTime(_source.end)),
                            "none");
    }

    [[nodiscard]] bool hasWorkDone() const { return isSameWork(_file.work * _progress, _file.actualWork); }
    [[nodiscard]] bool hasDurationDone() const {
        return std::abs(_duration * _progress - 6.0 * _file.actualDuration.tenths) <= 6;
    }

    // A fraction of a percent is not lost if work or duration show it.
    void comparePercent() {
        const double percent = _progress * 100;
        const double difference = std::abs(percent - _file.percentComplete);
        const bool isTold = (_file.work > 0 && hasWorkDone()) || (_duration > 0 && hasDurationDone());
        if (difference >= 1)
            _comparison.add(_subject, Kind::Unexplained, "progress", percentText(_progress),
                            fmt::format("{} %", _file.percentComplete));
        else if (difference > 1e-6 && !isTold)
            _comparison.add(_subject, Kind::WholePercent, "progress", percentText(_progress),
                            fmt::format("{} %", _file.percentComplete));
    }

    Comparison& _comparison;
    const SourceTask& _source;
    const inspect::Task& _file;
    Subject _subject;
    EffortShares _shares;
    double _progress;
    double _duration; ///< seconds
};

void compareGroup(Comparison& comparison, const TaskPair& pair) {
    const Subject subject = subjectOf(*pair.source);
    if (pair.source->hasEffort)
        comparison.work(subject, "work", pair.source->effort, pair.file->work, Kind::Summary);
    const double progress = pair.source->progress();
    if (progress > 0 && std::abs(progress * 100 - pair.file->percentComplete) >= 1)
        comparison.add(subject, Kind::Summary, "progress", percentText(progress),
                       fmt::format("{} %", pair.file->percentComplete));
}

} // namespace

void compareProgress(Comparison& comparison, const TaskPair& pair) {
    if (pair.source->isGroup())
        compareGroup(comparison, pair);
    else
        ProgressComparison(comparison, pair).run();
}

} // namespace brackwater::lossreport
