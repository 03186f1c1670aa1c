#include "loss-report/SourcePlan.h"

#include "Platform/Log/Log.h"
#include "Platform/Text/TextReadings.h"

#include <fmt/format.h>

#include <array>
#include <stdexcept>

namespace brackwater::lossreport {

namespace {

// The export has already logged its findings in the documents.
class SilentLog : public LogSink {
public:
    void receive(std::string_view) override {}
};

std::unique_ptr<XMLDocument> readDocument(const std::string& path) {
    std::string reason;
    auto document = XMLDocument::readFile(path, &reason);
    if (!document)
        throw std::runtime_error(reason);
    return document;
}

template <typename Visit>
void forEachChild(const XMLElement& element, const Visit& visit) {
    for (auto child = element.firstChildElement(); child; child = child->nextSiblingElement())
        visit(child->name(), *child);
}

bool booleanOf(std::string_view text, bool otherwise) {
    std::string lower;
    for (const char c : text)
        if (c != ' ' && c != '\t' && c != '\n' && c != '\r')
            lower += static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    if (lower == "true" || lower == "yes")
        return true;
    if (lower == "false" || lower == "no")
        return false;
    const auto number = scanInt(lower);
    return number && number->length == lower.size() ? number->value != 0 : otherwise;
}

/// A value that counts as absent when its element is repeated.
template <typename Value>
struct Single {
    std::optional<Value> value;
    int count = 0;

    void put(std::optional<Value> found) { value = ++count == 1 ? found : std::nullopt; }
};

std::optional<double> numberOf(std::string_view text) {
    const auto scanned = scanDouble(text);
    return scanned ? std::optional(scanned->value) : std::nullopt;
}

std::optional<std::int64_t> integerOf(std::string_view text) {
    const auto scanned = scanInteger(text);
    return scanned ? std::optional(scanned->value) : std::nullopt;
}

std::optional<double> secondsOf(std::string_view text) {
    const auto scanned = integerOf(text);
    return scanned ? std::optional(static_cast<double>(*scanned)) : std::nullopt;
}

/// Reads the elements of one scenario.
class ScenarioReader {
public:
    explicit ScenarioReader(SourceScenario& scenario) : _scenario(scenario) {}

    void read() {
        const XMLElement root = _scenario.document->rootElement();
        _scenario.fixedEnd = booleanOf(root.attributeView("fixed-end").value_or(""), false);
        forEachChild(root, [this](std::string_view name, const XMLElement& child) {
            if (name == "task")
                _scenario.tasks.push_back(task(child));
            else if (name == "resource")
                _scenario.resources.push_back(resource(child));
            else if (name == "top-task")
                _scenario.topTask = reference(child);
            else if (name == "top-resource")
                _scenario.topResource = reference(child);
            else if (name == "start-date")
                _scenario.start = text(child);
            else if (name == "end-date")
                _scenario.end = text(child);
        });
        index(_scenario.tasks, _scenario.taskPlaces);
        index(_scenario.resources, _scenario.resourcePlaces);
    }

private:
    template <typename Record>
    static void index(const std::vector<Record>& records, std::unordered_map<std::string_view, std::size_t>& places) {
        places.reserve(records.size());
        for (std::size_t i = 0; i < records.size(); ++i)
            places.insert_or_assign(records[i].id, i);
    }

    std::string_view text(const XMLElement& element) {
        _buffer.clear();
        const std::string_view view = element.textView(_buffer);
        return view.data() == _buffer.data() && !view.empty() ? _scenario.texts.emplace_back(view) : view;
    }

    static std::string_view reference(const XMLElement& element) { return element.attributeView("idref").value_or(""); }

    // Tasks.

    SourceTask task(const XMLElement& element) {
        SourceTask task;
        task.id = element.attributeView("id").value_or("");
        Single<double> effort, done, completion, cost;
        Single<std::int64_t> priority;
        Single<bool> splittable;
        forEachChild(element, [&](std::string_view name, const XMLElement& child) {
            if (SourceDate* date = dateOf(task, name))
                *date = text(child);
            else if (name == "duration")
                task.duration = doubleValue(text(child));
            else if (name == "effort")
                effort.put(secondsOf(text(child)));
            else if (name == "effort-done")
                done.put(secondsOf(text(child)));
            else if (name == "completion-percentage")
                completion.put(numberOf(text(child)));
            else if (name == "priority")
                priority.put(integerOf(text(child)));
            else if (name == "static-cost")
                cost.put(numberOf(text(child)));
            else if (name == "splittable")
                splittable.put(booleanOf(text(child), true));
            else
                addToTask(task, name, child);
        });
        task.hasEffort = effort.value.has_value();
        task.effort = effort.value.value_or(0);
        task.effortDone = done.value.value_or(0);
        task.completion = completion.value.value_or(0);
        task.priority = priority.value.value_or(0);
        task.staticCost = cost.value;
        task.splittable = splittable.value.value_or(true);
        return task;
    }

    static SourceDate* dateOf(SourceTask& task, std::string_view name) {
        struct Place {
            std::string_view name;
            SourceDate SourceTask::*date;
        };
        static constexpr std::array places{
            Place{"start-date", &SourceTask::start},
            Place{"end-date", &SourceTask::end},
            Place{"leveled-start", &SourceTask::leveledStart},
            Place{"locked-start-date", &SourceTask::lockedStart},
            Place{"locked-end-date", &SourceTask::lockedEnd},
            Place{"start-constraint-date", &SourceTask::startBound},
            Place{"end-constraint-date", &SourceTask::endBound},
            Place{"start-no-earlier-than", &SourceTask::startNoEarlier},
            Place{"end-no-earlier-than", &SourceTask::endNoEarlier},
            Place{"start-no-later-than", &SourceTask::startNoLater},
            Place{"end-no-later-than", &SourceTask::endNoLater},
        };
        for (const Place& place : places)
            if (place.name == name)
                return &(task.*place.date);
        return nullptr;
    }

    void addToTask(SourceTask& task, std::string_view name, const XMLElement& child) {
        if (name == "title")
            task.title = text(child);
        else if (name == "type")
            task.type = typeOf(text(child));
        else if (name == "schedule-type")
            task.scheduleType = text(child);
        else if (name == "recalculate")
            task.recalculate = text(child);
        else if (name == "note")
            task.note = note(child);
        else if (name == "user-data")
            task.fields = fields(child);
        else if (name == "prerequisite-task")
            task.links.push_back(link(child));
        else if (name == "assignment")
            task.assignments.push_back(assignment(child));
        else if (name == "child-task")
            task.children.push_back(reference(child));
        else if (name == "split")
            task.isSplit = true;
    }

    static SourceTaskType typeOf(std::string_view text) {
        if (text == "milestone")
            return SourceTaskType::Milestone;
        if (text == "group")
            return SourceTaskType::Group;
        return text == "hammock" ? SourceTaskType::Hammock : SourceTaskType::Task;
    }

    SourceLink link(const XMLElement& element) {
        SourceLink link;
        link.predecessor = element.attributeView("idref");
        link.kind = element.attributeView("kind").value_or("FS");
        link.isExternal = element.attributeView("external").has_value();
        forEachChild(element, [&](std::string_view name, const XMLElement& child) {
            if (name == "is-resource-dependency")
                link.isResourceDependency = booleanOf(text(child), false);
            else if (name == "lead-time") {
                link.lead = doubleValue(text(child));
                link.isPercentage = child.attributeView("is-percentage") == "true";
            }
        });
        return link;
    }

    static SourceAssignment assignment(const XMLElement& element) {
        const std::string_view units = element.attributeView("units").value_or("");
        return {reference(element), units.empty() ? 1.0 : doubleValue(units)};
    }

    // Resources.

    SourceResource resource(const XMLElement& element) {
        SourceResource resource;
        resource.id = element.attributeView("id").value_or("");
        Single<double> units, efficiency;
        forEachChild(element, [&](std::string_view name, const XMLElement& child) {
            if (name == "type")
                resource.type = text(child);
            else if (name == "name")
                resource.name = text(child);
            else if (name == "units-available")
                units.put(numberOf(text(child)));
            else if (name == "efficiency")
                efficiency.put(numberOf(text(child)));
            else if (name == "cost-per-use")
                resource.costPerUse = numberOf(text(child));
            else if (name == "cost-per-hour")
                resource.costPerHour = numberOf(text(child));
            else if (name == "email-address")
                resource.email = text(child);
            else if (name == "note")
                resource.note = note(child);
            else if (name == "user-data")
                resource.fields = fields(child);
            else if (name == "schedule")
                resource.schedule = schedule(child);
            else if (name == "child-resource")
                resource.children.push_back(reference(child));
        });
        resource.units = units.value;
        resource.efficiency = efficiency.value;
        return resource;
    }

    SourceSchedule schedule(const XMLElement& element) {
        bool isFlattened = false;
        forEachChild(element, [&](std::string_view name, const XMLElement&) {
            isFlattened = isFlattened || name == "flattened-schedule-day";
        });
        const std::string_view dayName = isFlattened ? "flattened-schedule-day" : "schedule-day";
        SourceSchedule schedule;
        forEachChild(element, [&](std::string_view name, const XMLElement& child) {
            if (name == "calendar")
                schedule.calendars.push_back(exceptions(child));
            if (name != dayName)
                return;
            if (const auto day = child.attributeView("day-of-week"))
                addWeekday(schedule, *day, child);
            if (const auto date = child.attributeView("date"); date && isFlattened)
                schedule.days.push_back({*date, spans(child)});
        });
        return schedule;
    }

    static void addWeekday(SourceSchedule& schedule, std::string_view name, const XMLElement& element) {
        constexpr std::array<std::string_view, 7> names{"sunday",   "monday", "tuesday", "wednesday",
                                                        "thursday", "friday", "saturday"};
        for (std::size_t i = 0; i < names.size(); ++i)
            if (names.at(i) == name)
                schedule.week.at(i) = spans(element);
    }

    static SourceSpans spans(const XMLElement& element) {
        SourceSpans spans;
        forEachChild(element, [&](std::string_view name, const XMLElement& child) {
            if (name == "time-span")
                spans.push_back({integerValue(child.attributeView("start-time").value_or("")),
                                 integerValue(child.attributeView("end-time").value_or(""))});
        });
        return spans;
    }

    static SourceExceptions exceptions(const XMLElement& element) {
        SourceExceptions found;
        found.name = element.attributeView("name").value_or("");
        found.overtime = booleanOf(element.attributeView("overtime").value_or(""), false);
        forEachChild(element, [&](std::string_view name, const XMLElement& child) {
            if (name == "event")
                found.events.push_back(
                    {child.attributeView("start").value_or(""), child.attributeView("end").value_or("")});
        });
        return found;
    }

    // Notes and fields.

    static std::optional<SourceNote> note(const XMLElement& element) {
        std::optional<SourceNote> note;
        forEachChild(element, [&](std::string_view name, const XMLElement& child) {
            if (name != "text")
                return;
            note.emplace();
            forEachChild(child, [&](std::string_view inText, const XMLElement& paragraph) {
                if (inText == "p")
                    addParagraph(*note, paragraph);
                else
                    note->hasMarkup = true;
            });
        });
        return note;
    }

    static void addParagraph(SourceNote& note, const XMLElement& paragraph) {
        std::string joined, piece;
        forEachChild(paragraph, [&](std::string_view name, const XMLElement& run) {
            if (name != "run") {
                note.hasMarkup = true;
                return;
            }
            forEachChild(run, [&](std::string_view inRun, const XMLElement& literal) {
                piece.clear();
                if (inRun == "lit")
                    joined += literal.textView(piece);
                else
                    note.hasMarkup = true;
            });
        });
        note.paragraphs.push_back(std::move(joined));
    }

    SourceFields fields(const XMLElement& element) {
        std::vector<std::string_view> keys, values;
        forEachChild(element, [&](std::string_view name, const XMLElement& child) {
            if (name == "key")
                keys.push_back(text(child));
            else if (name == "string")
                values.push_back(text(child));
        });
        SourceFields fields;
        for (std::size_t i = 0; i < keys.size() && i < values.size(); ++i)
            fields.emplace_back(keys[i], values[i]);
        return fields;
    }

    SourceScenario& _scenario;
    std::string _buffer;
};

SourceScenario readScenario(const std::string& path) {
    SourceScenario scenario;
    scenario.document = readDocument(path);
    ScenarioReader(scenario).read();
    return scenario;
}

struct ListedScenario {
    std::string id, file, name;
};

struct Contents {
    std::vector<ListedScenario> scenarios;
    std::optional<std::string> editing, comparison;
};

void readProject(SourcePlan& plan, Contents& contents, const XMLElement& project) {
    forEachChild(project, [&](std::string_view name, const XMLElement& child) {
        const auto attribute = [&child](std::string_view key) { return child.attributeForName(key).value_or(""); };
        if (name == "title")
            plan.title = child.stringValue();
        else if (name == "currency-format")
            plan.currencyFormat = child.stringValue();
        else if (name == "scenario")
            contents.scenarios.push_back({attribute("id"), attribute("filename"), attribute("name")});
    });
}

Contents readContents(SourcePlan& plan, const std::string& path) {
    const auto document = readDocument(path);
    Contents contents;
    bool hasWindow = false;
    forEachChild(document->rootElement(), [&](std::string_view name, const XMLElement& child) {
        if (name == "project")
            readProject(plan, contents, child);
        if (name != "window" || hasWindow)
            return;
        hasWindow = true;
        forEachChild(child, [&contents](std::string_view inWindow, const XMLElement& scenario) {
            if (inWindow == "editing-scenario")
                contents.editing = scenario.stringValue();
            else if (inWindow == "comparison-scenario")
                contents.comparison = scenario.stringValue();
        });
    });
    return contents;
}

} // namespace

SourcePlan readPlan(const std::string& bundlePath) {
    const SilentLog silence;
    SourcePlan plan;
    const Contents contents = readContents(plan, bundlePath + "/__TOC.xml");
    bool hasMain = false;
    for (const ListedScenario& listed : contents.scenarios) {
        const std::string path = fmt::format("{}/{}", bundlePath, listed.file);
        if (listed.id == contents.editing) {
            plan.main = readScenario(path);
            plan.mainName = listed.name;
            hasMain = true;
        } else if (listed.id == contents.comparison) {
            plan.baseline = readScenario(path);
            plan.baselineName = listed.name;
        } else {
            plan.otherScenarios.push_back(listed.name);
        }
    }
    if (!hasMain)
        throw std::runtime_error(fmt::format("the front window of '{}' shows none of its scenarios", bundlePath));
    return plan;
}

} // namespace brackwater::lossreport
