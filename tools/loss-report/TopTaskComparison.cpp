#include "loss-report/TaskParts.h"

namespace brackwater::lossreport {

// Readers show the project's row under the name of the document, and some show its other values.
void compareAbsorbedTask(Comparison& comparison, const TaskPair& pair) {
    const SourceTask& source = *pair.source;
    const inspect::Task& file = *pair.file;
    const Subject subject = subjectOf(source);
    comparison.text(subject, "title", source.title, file.title, Kind::TopTask);
    const std::string note = file.notes;
    const auto lost = [&](std::string_view field, const std::string& value) {
        comparison.add(subject, Kind::TopTask, field, value, "");
    };
    if (source.note && note.empty())
        lost("note", source.note->paragraphs.empty() ? "" : source.note->paragraphs.front());
    else
        comparison.note(subject, source.note, note);
    if (file.texts.empty())
        for (const auto& [key, value] : source.fields)
            lost(key, std::string(value));
    else
        comparison.fields(subject, source.fields, file.texts, comparison.file.taskTextNames);
    if (source.staticCost)
        comparison.number(subject, "cost", *source.staticCost, file.fixedCost, 100, Kind::TopTask);
    if (source.hasEffort)
        comparison.work(subject, "work", source.effort, file.work, Kind::TopTask);
    if (source.progress() > 0 && file.percentComplete == 0)
        lost("progress", inspect::numberText(source.progress() * 100) + " %");
    for (const auto& [name, date] :
         {std::pair{"locked start", source.lockedStart}, std::pair{"locked end", source.lockedEnd},
          std::pair{"constraint on the start", source.startBound}, std::pair{"constraint on the end", source.endBound}})
        if (date && !file.constraintDate)
            lost(name, textOf(comparison.wallTime(date)));
    if (comparison.plan.baseline && comparison.plan.baseline->task(source.id) != nullptr && file.baselines.empty())
        lost("baseline", comparison.plan.baselineName);
    else
        compareTaskBaseline(comparison, pair);
}

} // namespace brackwater::lossreport
