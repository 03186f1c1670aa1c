#include "Check.h"
#include "TextTable.h"

#include <fmt/format.h>

#include <map>
#include <set>
#include <unordered_map>

namespace brackwater::inspect {

namespace {

constexpr std::size_t kLongestName = 51;  ///< of a calendar or a field
constexpr std::size_t kLongestText = 255; ///< that a text field holds
constexpr unsigned kTenthsPerDay = 14'400;

std::string nameOf(const Task& task) { return fmt::format("task {}", task.uniqueId); }
std::string nameOf(const Resource& resource) { return fmt::format("resource {}", resource.uniqueId); }
std::string nameOf(const Assignment& assignment) { return fmt::format("assignment {}", assignment.id); }
std::string nameOf(const Calendar& calendar) { return fmt::format("calendar {}", calendar.id); }

/// Characters as the format counts them: one that needs two words of UTF-16 counts twice.
std::size_t wordsOf(std::string_view text) {
    std::size_t words = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        words += (byte & 0xC0U) == 0x80 ? 0U : (byte >= 0xF0 ? 2U : 1U);
    }
    return words;
}

struct Edge {
    std::uint32_t from, to;
};

std::vector<Edge> reversed(std::vector<Edge> edges) {
    for (Edge& edge : edges)
        std::swap(edge.from, edge.to);
    return edges;
}

/// Takes away edges from nodes that no edge leads to, again and again.
std::vector<Edge> withoutLooseEnds(std::vector<Edge> edges) {
    std::unordered_map<std::uint32_t, std::vector<std::uint32_t>> leavingFor;
    std::unordered_map<std::uint32_t, std::size_t> arriving;
    for (const Edge& edge : edges) {
        leavingFor[edge.from].push_back(edge.to);
        arriving.try_emplace(edge.from, 0);
        ++arriving[edge.to];
    }
    std::vector<std::uint32_t> loose;
    for (const auto& [node, count] : arriving)
        if (count == 0)
            loose.push_back(node);
    while (!loose.empty()) {
        const std::uint32_t node = loose.back();
        loose.pop_back();
        for (const std::uint32_t next : leavingFor[node])
            if (--arriving[next] == 0)
                loose.push_back(next);
    }
    std::erase_if(edges, [&arriving](const Edge& edge) { return arriving[edge.from] == 0; });
    return edges;
}

class PlanCheck {
public:
    PlanCheck(const ProjectFile& project, Findings& findings) : _project(project), _findings(findings) {}

    void checkAll() {
        for (const Task& task : _project.tasks)
            checkTask(task);
        for (const Resource& resource : _project.resources)
            checkResource(resource);
        for (const Assignment& assignment : _project.assignments) {
            for (const auto& [what, date] : {std::pair{"start", assignment.start}, {"finish", assignment.finish}})
                checkDate("TBkndAssn", nameOf(assignment), what, date);
            checkOrder("TBkndAssn", nameOf(assignment), assignment.start, assignment.finish);
        }
        checkCalendars();
        checkFieldNames("TBkndTask/Props", _project.taskTextNames);
        checkFieldNames("TBkndRsc/Props", _project.resourceTextNames);
        checkRepeatedLinks();
        checkCircles();
    }

private:
    void checkTask(const Task& task) {
        const std::string name = nameOf(task);
        const bool isPlanned = task.uniqueId != 0;
        if (isPlanned && (!task.start || !task.finish))
            _findings.warnings.add("TBkndTask", "a task without a start or a finish", name);
        if (isPlanned && task.title.empty())
            _findings.warnings.add("TBkndTask", "a task without a name", name);
        for (const auto& [what, date] : {std::pair{"start", task.start},
                                         {"finish", task.finish},
                                         {"actual start", task.actualStart},
                                         {"actual finish", task.actualFinish},
                                         {"constraint date", task.constraintDate},
                                         {"deadline", task.deadline}})
            checkDate("TBkndTask", name, what, date);
        checkOrder("TBkndTask", name, task.start, task.finish);
        checkBaselines("TBkndTask", name, task.baselines);
        checkText("TBkndTask", name, "name", task.title);
        checkTexts("TBkndTask", name, task.texts);
    }

    void checkResource(const Resource& resource) {
        const std::string name = nameOf(resource);
        if (resource.uniqueId != 0 && resource.name.empty())
            _findings.warnings.add("TBkndRsc", "a resource without a name", name);
        checkDate("TBkndRsc", name, "available from", resource.availableFrom);
        checkText("TBkndRsc", name, "name", resource.name);
        checkText("TBkndRsc", name, "initials", resource.initials);
        checkText("TBkndRsc", name, "group", resource.group);
        checkText("TBkndRsc", name, "code", resource.code);
        checkText("TBkndRsc", name, "e-mail address", resource.email);
        checkTexts("TBkndRsc", name, resource.texts);
    }

    void checkBaselines(std::string_view where, const std::string& name,
                        const std::map<std::size_t, Baseline>& baselines) {
        for (const auto& [number, baseline] : baselines) {
            checkDate(where, name, "baseline start", baseline.start);
            checkDate(where, name, "baseline finish", baseline.finish);
        }
    }

    // Day 0 is the last of 1983, which stands for all that is earlier; day 65535 stands for all that is later.
    void checkDate(std::string_view where, const std::string& name, std::string_view what,
                   const std::optional<Date>& date) {
        constexpr std::uint16_t lastDay = 65535;
        if (!date)
            return;
        const auto complain = [&](std::string_view fault) {
            _findings.warnings.add(where, fault, fmt::format("{} of {}", what, name));
        };
        if (date->days == 0)
            complain("a date before 1984, which the format does not have");
        else if (date->days == lastDay)
            complain("a date at or beyond the end of the format's dates");
        if (date->tenths >= kTenthsPerDay)
            complain("a time of day beyond midnight");
    }

    void checkOrder(std::string_view where, const std::string& name, const std::optional<Date>& start,
                    const std::optional<Date>& finish) {
        if (start && finish && *finish < *start)
            _findings.warnings.add(where, "the finish is before the start", name);
    }

    void checkText(std::string_view where, const std::string& name, std::string_view what, std::string_view text) {
        if (const std::size_t words = wordsOf(text); words > kLongestText)
            _findings.warnings.add(where, fmt::format("a text longer than the {} characters that fit", kLongestText),
                                   fmt::format("{} of {} with {}", what, name, words));
    }

    void checkTexts(std::string_view where, const std::string& name, const TextFields& texts) {
        for (const auto& [position, text] : texts)
            checkText(where, name, fmt::format("Text{}", position), text);
    }

    void checkName(std::string_view where, std::string_view what, const std::string& place, std::string_view name) {
        if (name.empty())
            _findings.warnings.add(where, fmt::format("a {} has an empty name", what), place);
        else if (const std::size_t words = wordsOf(name); words > kLongestName)
            _findings.warnings.add(where, fmt::format("a {} has a name longer than {} characters", what, kLongestName),
                                   fmt::format("{} with {}", place, words));
    }

    // A resource's own calendar is shown under the resource's name and needs none.
    void checkCalendars() {
        std::set<std::string_view> names;
        for (const Calendar& calendar : _project.calendars) {
            const bool ofResource = calendar.resourceId || calendar.baseId;
            if (!ofResource || !calendar.name.empty())
                checkName("TBkndCal", "calendar", nameOf(calendar), calendar.name);
            if (!ofResource && !calendar.name.empty() && !names.insert(calendar.name).second)
                _findings.warnings.add("TBkndCal", "two base calendars have the same name", nameOf(calendar));
            for (const CalendarException& exception : calendar.exceptions)
                if (exception.lastDay < exception.firstDay)
                    _findings.warnings.add("TBkndCal", "an exception ends before it begins", nameOf(calendar));
        }
    }

    void checkFieldNames(std::string_view where, const std::map<std::size_t, std::string>& fields) {
        std::set<std::string_view> names;
        for (const auto& [position, name] : fields) {
            checkName(where, "field", fmt::format("Text{}", position), name);
            if (!name.empty() && !names.insert(name).second)
                _findings.warnings.add(where, "two fields have the same name", fmt::format("Text{}", position));
        }
    }

    void checkRepeatedLinks() {
        std::set<std::pair<std::uint32_t, std::uint32_t>> pairs;
        for (const Link& link : _project.links)
            if (!pairs.emplace(link.predecessor, link.successor).second)
                _findings.warnings.add("TBkndCons", "two links between the same tasks",
                                       fmt::format("from {} to {}", link.predecessor, link.successor));
    }

    // What waits for nothing in a circle is taken away, then what nothing in a circle waits for.
    void checkCircles() {
        std::vector<Edge> edges;
        for (const Link& link : _project.links)
            if (link.predecessor != link.successor)
                edges.push_back({link.predecessor, link.successor});
        edges = reversed(withoutLooseEnds(reversed(withoutLooseEnds(std::move(edges)))));
        std::set<std::uint32_t> tasks;
        for (const Edge& edge : edges)
            tasks.insert(edge.from);
        for (const std::uint32_t task : tasks)
            _findings.warnings.add("TBkndCons", "a task waits for itself through a circle of links",
                                   fmt::format("task {}", task));
    }

    const ProjectFile& _project;
    Findings& _findings;
};

} // namespace

void checkPlan(const ProjectFile& project, Findings& findings) { PlanCheck(project, findings).checkAll(); }

} // namespace brackwater::inspect
