#include "CriticalPath.h"

#include "CalendarHours.h"
#include "WorkingDays.h"

#include <algorithm>
#include <unordered_map>

namespace brackwater::inspect {

namespace {

constexpr std::uint16_t kDone = 100;
constexpr std::int64_t kTenthsPerDay = 14'400, kWhole = 100;

bool hasLateDates(const std::vector<Task>& tasks) {
    return std::ranges::any_of(tasks,
                               [](const Task& task) { return task.lateFinish && task.lateFinish != task.finish; });
}

/// Days of the tasks' schedule.
DaySpan daysOf(const std::vector<Task>& tasks) {
    DaySpan span{0xFFFF, 0};
    for (const Task& task : tasks)
        if (task.start && task.finish)
            for (const int day : {task.start->days, task.finish->days})
                span = {std::min(span.first, day), std::max(span.last, day)};
    return span;
}

/// Counts the working time of a calendar, or of the usual hours.
class WorkClock {
public:
    WorkClock(const Calendar* calendar, DaySpan days) : _first(days.first), _hours(calendar) {
        _before.push_back(0);
        for (int day = days.first; day <= days.last; ++day)
            _before.push_back(_before.back() + worked(day, kTenthsPerDay));
    }

    /// Tenths of a minute since the first of the days, up to a moment on one of them.
    [[nodiscard]] std::int64_t until(const Date& date) const {
        const int day = date.days - _first;
        return day < 0 ? 0 : _before.at(static_cast<std::size_t>(day)) + worked(date.days, date.tenths);
    }

private:
    [[nodiscard]] std::int64_t worked(int day, std::int64_t until) const {
        std::int64_t sum = 0;
        for (const TimeRange& range : _hours.on(day))
            sum += std::max<std::int64_t>(std::min<std::int64_t>(range.end, until) - range.start, 0);
        return sum;
    }

    int _first;
    CalendarHours _hours;
    std::vector<std::int64_t> _before; ///< what was worked before each day
};

/// Follows the links back from the end of the project.
class Search {
public:
    explicit Search(const ProjectFile& project) : _clock(projectCalendar(project), daysOf(project.tasks)) {
        for (const Task& task : project.tasks) {
            if (task.uniqueId == 0 || !task.start || !task.finish)
                continue;
            _tasks.try_emplace(task.uniqueId, &task);
            if (task.parentId && *task.parentId != 0)
                _children[*task.parentId].push_back(&task);
        }
        for (const Link& link : project.links)
            _arriving[link.successor].push_back(&link);
    }

    std::unordered_set<std::uint32_t> run() {
        std::optional<Date> end;
        for (const auto& [id, task] : _tasks)
            end = std::max(end.value_or(*task->finish), *task->finish);
        for (const auto& [id, task] : _tasks)
            if (!_children.contains(id) && left(*task->finish, *end) <= 0)
                reach(*task);
        while (!_open.empty()) {
            const Task& task = *_open.back();
            _open.pop_back();
            followBack(task);
        }
        std::erase_if(_reached, [this](std::uint32_t id) { return _children.contains(id); });
        return std::move(_reached);
    }

private:
    [[nodiscard]] std::int64_t left(const Date& from, const Date& to) const {
        return _clock.until(to) - _clock.until(from);
    }

    void reach(const Task& task) {
        if (task.percentComplete < kDone && _reached.insert(task.uniqueId).second)
            _open.push_back(&task);
    }

    // What holds the start of a group holds the start of a task that begins with it.
    void followBack(const Task& task) {
        if (const auto links = _arriving.find(task.uniqueId); links != _arriving.end())
            for (const Link* link : links->second)
                if (const auto from = _tasks.find(link->predecessor);
                    from != _tasks.end() && drives(*link, *from->second, task))
                    reachEnd(*from->second);
        if (!task.parentId)
            return;
        const auto parent = _tasks.find(*task.parentId);
        if (parent != _tasks.end() && left(*parent->second->start, *task.start) <= 0)
            reach(*parent->second);
    }

    // A group ends with those of its tasks that end last.
    void reachEnd(const Task& task) {
        std::vector<const Task*> ends{&task};
        while (!ends.empty()) {
            const Task& end = *ends.back();
            ends.pop_back();
            const auto children = _children.find(end.uniqueId);
            if (children == _children.end()) {
                reach(end);
            } else if (_ended.insert(end.uniqueId).second) {
                for (const Task* child : children->second)
                    if (left(*child->finish, *end.finish) <= 0)
                        ends.push_back(child);
            }
        }
    }

    /// Whether the link leaves no working time between the two.
    [[nodiscard]] bool drives(const Link& link, const Task& from, const Task& to) const {
        const bool fromFinish = link.type == 0 || link.type == 1, toFinish = link.type == 0 || link.type == 2;
        const Date& begin = fromFinish ? *from.finish : *from.start;
        const Date& end = toFinish ? *to.finish : *to.start;
        if (isPercentage(link.lag)) // of the predecessor
            return left(begin, end) * kWhole <= left(*from.start, *from.finish) * link.lag.tenths;
        if (unitText(link.lag).starts_with('e')) {
            const std::int64_t elapsed =
                (std::int64_t{end.days} - begin.days) * kTenthsPerDay + end.tenths - begin.tenths;
            return elapsed <= link.lag.tenths;
        }
        return left(begin, end) <= link.lag.tenths;
    }

    WorkClock _clock;
    std::unordered_map<std::uint32_t, const Task*> _tasks;
    std::unordered_map<std::uint32_t, std::vector<const Task*>> _children;
    std::unordered_map<std::uint32_t, std::vector<const Link*>> _arriving;
    std::unordered_set<std::uint32_t> _reached, _ended;
    std::vector<const Task*> _open;
};

} // namespace

std::unordered_set<std::uint32_t> criticalTasks(const ProjectFile& project) {
    if (!hasLateDates(project.tasks))
        return Search(project).run();
    std::unordered_set<std::uint32_t> parents, critical;
    for (const Task& task : project.tasks)
        if (task.parentId)
            parents.insert(*task.parentId);
    for (const Task& task : project.tasks)
        if (task.uniqueId != 0 && !parents.contains(task.uniqueId) && task.percentComplete < kDone && task.finish &&
            task.lateFinish && *task.lateFinish <= *task.finish)
            critical.insert(task.uniqueId);
    return critical;
}

} // namespace brackwater::inspect
