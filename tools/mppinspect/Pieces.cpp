#include "WorkPhases.h"
#include "WorkingDays.h"
#include "WorkingTime.h"

#include <algorithm>
#include <unordered_map>

namespace brackwater::inspect {

namespace {

bool isGap(const WorkPhase& phase) { return phase.work == 0 && phase.units == 0; }

/// Finds out when the assignments are worked on.
class PieceFinder {
public:
    explicit PieceFinder(const ProjectFile& project) : _time(project) {
        if (const Calendar* calendar = projectCalendar(project))
            _projectCalendar = calendar->id;
        for (const Task& task : project.tasks)
            _tasks.try_emplace(task.uniqueId, &task);
        for (const Resource& resource : project.resources)
            _resources.try_emplace(resource.uniqueId, &resource);
    }

    [[nodiscard]] std::vector<Piece> piecesOf(const Assignment& assignment) {
        if (!assignment.start || !assignment.finish || *assignment.start >= *assignment.finish)
            return {};
        const Piece whole{*assignment.start, *assignment.finish};
        if (!mayBeInterrupted(assignment))
            return {whole};
        std::vector<Piece> pieces;
        const WorkingTime::CalendarId calendar = calendarOf(assignment);
        if (!addPhases(pieces, assignment.complete, *assignment.start, calendar) ||
            !addPhases(pieces, assignment.remaining, assignment.resume.value_or(*assignment.start), calendar))
            return {whole};
        if (pieces.empty())
            return {whole};
        // The counted moments are rounded to tenths of a minute, those of the assignment are not.
        if (!beginsWithGap(assignment))
            pieces.front().start = whole.start;
        if (pieces.back().start < whole.finish)
            pieces.back().finish = whole.finish;
        return pieces;
    }

    /// Brings the pieces of several assignments of a task together.
    [[nodiscard]] std::vector<Piece> joined(std::vector<Piece> pieces, WorkingTime::CalendarId calendar) {
        std::ranges::stable_sort(pieces, {}, &Piece::start);
        std::vector<Piece> together;
        for (const Piece& piece : pieces)
            add(together, piece, calendar);
        return together;
    }

    [[nodiscard]] WorkingTime::CalendarId calendarOf(const Assignment& assignment) const {
        const auto task = _tasks.find(assignment.taskId);
        const bool ignores = task != _tasks.end() && task->second->ignoresResourceCalendars;
        const auto resource = assignment.resourceId ? _resources.find(*assignment.resourceId) : _resources.end();
        if (resource != _resources.end() && resource->second->calendarId && !ignores)
            return resource->second->calendarId;
        if (task != _tasks.end() && task->second->calendarId > 0)
            return static_cast<std::uint32_t>(task->second->calendarId);
        return _projectCalendar;
    }

private:
    static bool mayBeInterrupted(const Assignment& assignment) {
        return std::ranges::any_of(assignment.complete, isGap) || std::ranges::any_of(assignment.remaining, isGap) ||
               (!assignment.complete.empty() && assignment.stop < assignment.resume);
    }

    static bool beginsWithGap(const Assignment& assignment) {
        const std::vector<WorkPhase>& phases = assignment.complete.empty() ? assignment.remaining : assignment.complete;
        return !phases.empty() && isGap(phases.front());
    }

    // Whether all moments could be found.
    bool addPhases(std::vector<Piece>& pieces, const std::vector<WorkPhase>& phases, Date moment,
                   WorkingTime::CalendarId calendar) {
        for (const WorkPhase& phase : phases) {
            const auto end = _time.after(calendar, moment, phase.tenths);
            const auto begin = isGap(phase) ? std::optional(moment) : _time.nextWorking(calendar, moment);
            if (!end || !begin)
                return false;
            if (!isGap(phase) && phase.tenths > 0)
                add(pieces, {*begin, *end}, calendar);
            moment = *end;
        }
        return true;
    }

    // A piece that goes on where the last one ended is no piece of its own.
    void add(std::vector<Piece>& pieces, const Piece& piece, WorkingTime::CalendarId calendar) {
        if (!pieces.empty() &&
            (piece.start <= pieces.back().finish || _time.nextWorking(calendar, pieces.back().finish) >= piece.start))
            pieces.back().finish = std::max(pieces.back().finish, piece.finish);
        else
            pieces.push_back(piece);
    }

    WorkingTime _time;
    WorkingTime::CalendarId _projectCalendar;
    std::unordered_map<std::uint32_t, const Task*> _tasks;
    std::unordered_map<std::uint32_t, const Resource*> _resources;
};

} // namespace

void arrangePieces(ProjectFile& project) {
    PieceFinder finder(project);
    std::unordered_map<std::uint32_t, std::vector<const Assignment*>> byTask;
    for (Assignment& assignment : project.assignments) {
        assignment.pieces = finder.piecesOf(assignment);
        byTask[assignment.taskId].push_back(&assignment);
    }
    for (Task& task : project.tasks) {
        const auto assignments = byTask.find(task.uniqueId);
        if (assignments == byTask.end())
            continue;
        std::vector<Piece> pieces;
        for (const Assignment* assignment : assignments->second)
            pieces.insert(pieces.end(), assignment->pieces.begin(), assignment->pieces.end());
        task.pieces = finder.joined(std::move(pieces), finder.calendarOf(*assignments->second.front()));
    }
}

} // namespace brackwater::inspect
